#include "nav/goto/ApproachBeep.h"

#include <algorithm>
#include <cmath>

ApproachBeep ApproachBeepFor(double distanceKm, double courseDeg, double headingDeg, bool bToNorth) {
    ApproachBeep beep;
    beep.m_nFrequencyHz = static_cast<int>((0.5 - std::min(distanceKm, 0.5)) * 4000.0 + 1000.0);
    const double heading = bToNorth ? 0.0 : headingDeg;
    const double r = std::fmod(courseDeg - heading + 540.0, 360.0) - 180.0;
    if (std::abs(r) >= 91) {
        beep.m_nDurationMs = 200;
        beep.m_nTones = 2;
    } else if (std::abs(r) <= 10) {
        beep.m_nDurationMs = 70;
        beep.m_nTones = 1;
    } else {
        beep.m_nDurationMs = 70;
        beep.m_nTones = r < 0 ? 2 : 3;
    }
    if (distanceKm <= 0.005) {
        beep.m_nDurationMs = 500;
        beep.m_nTones = 1;
    }
    return beep;
}

bool CBeepCounter::Tick() {
    if (--m_nLeft > 0) return false;
    m_nLeft = m_nRepeat;
    return true;
}
