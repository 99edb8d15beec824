#pragma once

// Paces a recorded log by its own time stamps: after the first GGA or RMC of each new recorded
// second, the replay pauses 1000 / speed milliseconds; the lines in between follow at once.
class ReplayPacer {
public:
    // `anyTalker`: GGA and RMC of every talker ("$GNRMC" too) carry time; else only "$GP".
    ReplayPacer(int simulationSpeed, bool anyTalker);

    // The pause due after `line` has gone out, in milliseconds; 0 when none is due.
    int pauseAfter(const char* line, int length);

private:
    int m_nPauseMs;
    bool m_bAnyTalker;
    int m_nLastTime = 0; // hhmmss of the last time stamp, as an integer
};
