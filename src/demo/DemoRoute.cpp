#include "demo/DemoRoute.h"

#include "nav/GeoConstants.h"

#include <algorithm>
#include <cmath>

namespace {

// Lengths in metres, limits in km/h, stops in seconds. The altitudes follow the Allgäu's: about
// 655 m in Leutkirch, some 730 m before the tunnel, 685 m in Isny.
constexpr RouteLeg kLeutkirchToIsny[] = {
    // Leutkirch: parked with the engine running, then out of the old town.
    {0, 0, 0, 0, 12, false},
    {80, 0, 30, 0, 0, false},
    {16, 90, 30, 0, 0, false}, // right into a side street
    {340, 0, 30, 0.5, 0, false},
    {19, -90, 30, 0, 0, false},
    {420, 0, 50, 1.0, 30, false}, // traffic light
    {360, 0, 50, 0, 0, false},
    {24, 90, 50, 0, 0, false},
    {520, 0, 50, -0.6, 0, false},
    {60, -35, 50, 0, 0, false},
    {380, 0, 50, 0, 25, false}, // pedestrian lights
    {18, -90, 30, 0, 0, false}, // left into a 30 zone
    {450, 0, 30, -0.5, 0, false},
    {18, 90, 30, 0, 0, false},
    {480, 0, 50, 0, 0, false},
    {30, 30, 50, 0, 0, false},
    {650, 0, 50, 0.4, 0, false}, // town exit
    // Country road towards Isny.
    {300, 0, 70, 0.5, 0, false},
    {1600, 0, 100, 1.5, 0, false},
    {200, -25, 100, 1.0, 0, false},
    {1800, 0, 100, 0.8, 0, false},
    {220, 40, 90, 0, 0, false},
    {900, 0, 80, -1.0, 0, false},
    {130, -15, 80, 0, 0, false},
    {1300, 0, 100, 0.5, 0, false},
    {150, 0, 60, 0, 100, false}, // lay-by: a break
    {1100, 0, 100, 2.5, 0, false},
    {850, 0, 80, -0.5, 0, true}, // tunnel under the ridge
    {1300, 0, 100, -2.0, 0, false},
    {140, -20, 100, -1.0, 0, false},
    {1500, 0, 100, -1.0, 0, false},
    {250, 15, 100, 0, 0, false},
    {1400, 0, 100, -0.3, 0, false},
    // Isny.
    {300, 0, 70, 0, 0, false},
    {700, 0, 50, 0, 0, false},
    {19, 90, 30, 0, 0, false},
    {260, 0, 30, 0, 0, false},
    {13, -90, 15, 0, 0, false},
    {40, 0, 15, 0, 15, false}, // parked
};

} // namespace

GeoPosition offsetBy(const GeoPosition& position, double eastM, double northM) {
    const double metresPerDegree = KmPerRadian * DegToRad * 1000.0;
    return {position.m_dPosLat + northM / metresPerDegree,
            position.m_dPosLong + eastM / (metresPerDegree * std::cos(position.m_dPosLat * DegToRad))};
}

Route demoRoute() {
    return Route{GeoPosition{47.82535, 10.02190}, 95.0, 655.0, kLeutkirchToIsny};
}

RoutePath::RoutePath(const Route& route) : m_legs(route.m_legs) {
    Sample sample{route.m_start, route.m_dStartHeadingDeg, route.m_dStartAltitudeM, 0.0, 0};
    m_samples.push_back(sample);
    for (size_t leg = 0; leg < m_legs.size(); ++leg) {
        const RouteLeg& piece = m_legs[leg];
        const int metres = static_cast<int>(std::lround(piece.m_dLengthM));
        const double turnPerMetre = metres > 0 ? piece.m_dTurnDeg / metres : 0.0;
        sample.m_dCurvature = turnPerMetre * DegToRad;
        sample.m_nLeg = static_cast<int>(leg);
        if (m_samples.size() == 1 && metres > 0)
            m_samples.front().m_nLeg = sample.m_nLeg; // the start lies on the road
        for (int metre = 0; metre < metres; ++metre) {
            // Each metre is driven on the heading of its middle, so an arc ends on the new heading.
            const double heading = sample.m_dHeadingDeg + turnPerMetre / 2.0;
            sample.m_pos = offsetBy(sample.m_pos, std::sin(heading * DegToRad), std::cos(heading * DegToRad));
            sample.m_dHeadingDeg = std::fmod(sample.m_dHeadingDeg + turnPerMetre + 360.0, 360.0);
            sample.m_dAltitudeM += piece.m_dGradePct / 100.0;
            m_samples.push_back(sample);
        }
        if (piece.m_dStopS > 0) m_stops.push_back({lengthM(), piece.m_dStopS});
    }
}

size_t RoutePath::index(double s, double& fraction) const {
    const double clamped = std::clamp(s, 0.0, lengthM());
    const double upper = std::ceil(clamped);
    fraction = upper > 0 ? 1.0 - (upper - clamped) : 1.0;
    return static_cast<size_t>(upper);
}

GeoPosition RoutePath::positionAt(double s) const {
    double fraction = 0;
    const size_t i = index(s, fraction);
    if (i == 0) return m_samples.front().m_pos;
    const GeoPosition& a = m_samples[i - 1].m_pos;
    const GeoPosition& b = m_samples[i].m_pos;
    return {a.m_dPosLat + (b.m_dPosLat - a.m_dPosLat) * fraction,
            a.m_dPosLong + (b.m_dPosLong - a.m_dPosLong) * fraction};
}

double RoutePath::headingAt(double s) const {
    double fraction = 0;
    const size_t i = index(s, fraction);
    if (i == 0) return m_samples.front().m_dHeadingDeg;
    const double from = m_samples[i - 1].m_dHeadingDeg;
    const double turn = std::remainder(m_samples[i].m_dHeadingDeg - from, 360.0);
    return std::fmod(from + turn * fraction + 360.0, 360.0);
}

double RoutePath::altitudeAt(double s) const {
    double fraction = 0;
    const size_t i = index(s, fraction);
    if (i == 0) return m_samples.front().m_dAltitudeM;
    return m_samples[i - 1].m_dAltitudeM +
           (m_samples[i].m_dAltitudeM - m_samples[i - 1].m_dAltitudeM) * fraction;
}

const RouteLeg& RoutePath::legAt(double s) const {
    double fraction = 0;
    return m_legs[m_samples[index(s, fraction)].m_nLeg];
}

double RoutePath::curvatureAt(double s) const {
    double fraction = 0;
    return m_samples[index(s, fraction)].m_dCurvature;
}
