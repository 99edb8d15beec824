#pragma once

#include "demo/DemoRoute.h"
#include "nav/GeoPosition.h"

#include <cstdint>
#include <vector>

// Where the car really is at one whole second of the drive.
struct DriveSample {
    int64_t m_tUtc = 0; // seconds since 1970, UTC
    GeoPosition m_pos;
    double m_dAltitudeM = 0; // above sea level
    double m_dSpeedKmh = 0;
    double m_dCourseDeg = 0; // degrees true, the road's heading
    bool m_bSkyVisible = true;
};

// Drives a car along the path the way a calm driver does: a little under or over each posted speed
// (drawn per leg from the seed), slowing for curves and before stops, accelerating less at speed,
// and standing at each stop for about its nominal time. One sample per second, from the start
// (standing) to the end of the last stop.
std::vector<DriveSample> simulateDrive(const RoutePath& path, uint64_t seed, int64_t startUtc);
