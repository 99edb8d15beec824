#pragma once

#include "platform/DeviceRoot.h"

#include <QString>
#include <cstdint>
#include <thread>

class DeviceClock;
class StopEvent;

// Deletes track log files older than "DelFilesOlder" days from "LogDirectory", once, a while
// after start; files whose names are no log file name ("2006-05-14_09-31.txt") are kept.
class OldLogPurge {
public:
    static constexpr int kStartDelayMs = 60000;

    OldLogPurge(const DeviceRoot& root, const DeviceClock& clock) : m_root(root), m_clock(clock) {}

    // The purge thread's body: waits `delayMs` on `stop`, ends at once when it is set meanwhile,
    // else deletes the old files. Returns how many files were deleted.
    int ThreadDelOldLog(const StopEvent& stop, int delayMs = kStartDelayMs);
    // Runs ThreadDelOldLog on a thread of its own; the caller joins it after setting `stop`.
    // `clock` and `stop` must outlive the thread.
    static std::thread start(const DeviceRoot& root, const DeviceClock& clock, const StopEvent& stop);

private:
    int deleteOldFiles(const StopEvent& stop);

    DeviceRoot m_root;
    const DeviceClock& m_clock;
};
