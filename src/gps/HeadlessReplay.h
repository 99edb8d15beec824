#pragma once

#include "gps/TourStatistics.h"

#include <QByteArrayView>
#include <QString>
#include <cstdint>

class CFendixDoc;
class DeviceRoot;
class FixedDeviceClock;

// What one replayed run leaves behind.
struct ReplaySummary {
    TourStatistics m_stats;
    int64_t m_nEpochs = 0;
    int64_t m_nValidEpochs = 0;
    QString m_strLogFile;    // host path of the log the run wrote; empty when logging was off
    QString m_strLogFailure; // why the log is incomplete; empty when it is complete or off
};

// One whole run of the document over a recorded log, headless and as fast as possible: a source
// start with reset statistics (a new log file), every sentence through the hand-over (log writer,
// interpreter, epoch handling) on the recording's time line, then the shutdown saves. The run
// takes the settings of the current hive, behaves like the "Simulate" source (it never sets the
// clock) and sees no supervision ticks.
ReplaySummary replayLog(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log);

// The same run without its traces: no log file is written and no setting is changed (the tour
// and the last position stay in memory), so that a log can be measured after the fact with the
// figures a replay gives. The summary's log file is empty.
ReplaySummary measureLog(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log);

// The measuring run into a document of the caller's (made on `clock`), stopped before the first
// sentence whose time lies more than `atSeconds` after the clock's start; the whole log when
// `atSeconds` is negative. The document is left as it was at that moment: what a page showed then.
void measureLogUntil(CFendixDoc& doc, FixedDeviceClock& clock, QByteArrayView log, int64_t atSeconds = -1);
