#pragma once

class FixedDeviceClock;

// Moves a clock along a recording's own time line: each new time stamp of a $GPGGA or $GPRMC
// advances the clock by the recorded step, so that a replay as fast as possible still sees its
// seconds pass as in the live run (log thinning, the once-a-minute flush, tour saves). Steps across
// midnight count forward; a stamp that goes back in time leaves the clock where it is.
class ReplayTimeline {
public:
    explicit ReplayTimeline(FixedDeviceClock& clock) : m_clock(clock) {}

    // Called with every sentence before it is handed over.
    void follow(const char* line, int length);

private:
    FixedDeviceClock& m_clock;
    int m_nLastSecondOfDay = -1; // of the latest stamp that moved the clock; -1 before the first
};
