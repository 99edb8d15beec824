#pragma once

#include <cstdint>

class DeviceClock;
struct TourStatistics;

// Keeps the tour and the last position in the settings store, so that they survive restarts.
// Every write is committed at once, so a killed process loses only what came after it.
class TourStore {
public:
    explicit TourStore(const DeviceClock& clock) : m_clock(clock) {}

    // Keeps the tour in memory only: for runs that measure a log and must leave the settings alone.
    void keepInMemory() { m_bInMemory = true; }

    // Loads "TourTime" and "Tour"; when either is missing the tour is reset (and so saved).
    void load(TourStatistics& stats);
    // "TourTime" and "Tour" from the statistics.
    void save(const TourStatistics& stats);
    // Tour time and distance to their defaults, saved, and "TourStart" set to the local time now.
    void reset(TourStatistics& stats);
    // "LastLong" and "LastLat", in single precision as they have always been stored.
    void saveLastPosition(double lon, double lat);

private:
    const DeviceClock& m_clock;
    bool m_bInMemory = false;
};
