#include "demo/DemoSky.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int kSatellitesInView = 11;
constexpr int kPrnCount = 32;
constexpr double kDegPerMinute = 1.0 / 60.0;
constexpr int kTrackedSnr = 20; // dB-Hz; weaker signals are lost
constexpr int kUsedSnr = 27;
constexpr int kUsedElevation = 8; // degrees; lower ones are left out of the fix

} // namespace

DemoSky::DemoSky(uint64_t seed) : m_random(seed) {
    std::vector<int> prns(kPrnCount);
    for (int i = 0; i < kPrnCount; ++i)
        prns[i] = i + 1;
    for (int i = 0; i < kSatellitesInView; ++i) {
        // Draw without repetition: swap the chosen PRN out of the remaining ones.
        const int pick = i + static_cast<int>(m_random.uniform(0, kPrnCount - i));
        std::swap(prns[i], prns[pick]);
        // Spread the azimuths around the sky so the geometry is good, as it usually is.
        const double azimuth = 360.0 * i / kSatellitesInView + m_random.uniform(-12, 12);
        m_orbits.push_back(Orbit{prns[i], m_random.uniform(12, 82), std::fmod(azimuth + 360.0, 360.0),
                                 m_random.uniform(-0.4, 0.4) * kDegPerMinute,
                                 m_random.uniform(-0.5, 0.5) * kDegPerMinute, WanderingOffset(2.5, 20)});
    }
    std::sort(m_orbits.begin(), m_orbits.end(),
              [](const Orbit& a, const Orbit& b) { return a.m_nPrn < b.m_nPrn; });
}

std::vector<SkySatellite> DemoSky::advance(double elapsedS, bool bSkyVisible) {
    std::vector<SkySatellite> sky;
    int used = 0;
    for (Orbit& orbit : m_orbits) {
        orbit.m_dElevationDeg =
            std::clamp(orbit.m_dElevationDeg + orbit.m_dElevationRate * elapsedS, 0.0, 90.0);
        orbit.m_dAzimuthDeg = std::fmod(orbit.m_dAzimuthDeg + orbit.m_dAzimuthRate * elapsedS + 360.0, 360.0);
        const double wander = orbit.m_snrWander.step(m_random, elapsedS);
        if (orbit.m_dElevationDeg < 1.0) continue;
        SkySatellite satellite;
        satellite.m_nPrn = orbit.m_nPrn;
        satellite.m_nElevationDeg = static_cast<int>(std::lround(orbit.m_dElevationDeg));
        satellite.m_nAzimuthDeg = static_cast<int>(std::lround(orbit.m_dAzimuthDeg)) % 360;
        const double snr = 18.0 + 28.0 * std::sin(orbit.m_dElevationDeg * std::numbers::pi / 180.0) + wander;
        const int rounded = std::min(static_cast<int>(std::lround(snr)), 52);
        if (bSkyVisible && rounded >= kTrackedSnr) satellite.m_nSnr = rounded;
        satellite.m_bUsed =
            satellite.m_nSnr >= kUsedSnr && satellite.m_nElevationDeg >= kUsedElevation && used < kMaxUsed;
        used += satellite.m_bUsed ? 1 : 0;
        sky.push_back(satellite);
    }
    return sky;
}

double hdopFor(int usedSatellites) {
    return 0.55 + 3.6 / std::max(usedSatellites, 1);
}
