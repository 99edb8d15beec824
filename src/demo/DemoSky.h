#pragma once

#include "demo/SeededRandom.h"

#include <vector>

// One satellite as a receiver reports it in $GPGSV.
struct SkySatellite {
    int m_nPrn = 0;
    int m_nElevationDeg = 0; // 0..90
    int m_nAzimuthDeg = 0;   // 0..359, true
    int m_nSnr = 0;          // dB-Hz; 0 when the satellite is not tracked
    bool m_bUsed = false;    // part of the fix
};

// A plausible GPS sky over the drive: about ten satellites drawn from the seed, drifting slowly
// across the sky, with signal strengths that rise with elevation and wander a little.
class DemoSky {
public:
    static constexpr int kMaxUsed = 11; // $GPGSA readers count eleven PRN fields

    explicit DemoSky(uint64_t seed);

    // The satellites above the horizon after `elapsedS` more seconds. Without a view of the sky
    // they are still listed (the receiver knows where they are) but none is tracked.
    std::vector<SkySatellite> advance(double elapsedS, bool bSkyVisible);

private:
    struct Orbit {
        int m_nPrn;
        double m_dElevationDeg;
        double m_dAzimuthDeg;
        double m_dElevationRate; // degrees per second
        double m_dAzimuthRate;
        WanderingOffset m_snrWander;
    };

    SeededRandom m_random;
    std::vector<Orbit> m_orbits;
};

// Horizontal dilution of precision for a number of used satellites: about 1.0 with eight.
double hdopFor(int usedSatellites);
