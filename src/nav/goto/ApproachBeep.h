#pragma once

#include <cstdint>

// One beep sequence as the target comes near.
struct ApproachBeep {
    int m_nFrequencyHz = 0; // 1000 Hz at 500 m and beyond, rising to 3000 Hz at the target
    int m_nDurationMs = 0;  // of each tone
    int m_nTones = 0;
};

// Pitch from the distance (km); tone count and length from where the target lies: behind (|r| >= 91
// degrees) two long tones, ahead (|r| <= 10) one short, else two short to the left and three to the
// right; within 5 m one 500 ms tone. `courseDeg` to the target and `headingDeg` from north; with
// `bToNorth` the heading counts as 0.
ApproachBeep ApproachBeepFor(double distanceKm, double courseDeg, double headingDeg, bool bToNorth);

// Every `repeat`-th position update with a set target beeps ("GoToBeepRepeat"); 0 counts as 1.
class CBeepCounter {
public:
    explicit CBeepCounter(uint8_t repeat = 1) : m_nRepeat(repeat), m_nLeft(repeat) {}
    void SetRepeat(uint8_t repeat) { m_nRepeat = m_nLeft = repeat; }
    // One update: true when this one beeps.
    bool Tick();

private:
    int m_nRepeat;
    int m_nLeft;
};
