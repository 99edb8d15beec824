#pragma once

#include "nav/GeoPosition.h"

#include <span>
#include <vector>

// One piece of road of the demo drive.
struct RouteLeg {
    double m_dLengthM;  // metres along the road; 0 for a stop only
    double m_dTurnDeg;  // heading change over the leg, spread evenly: positive right, negative left
    double m_dLimitKmh; // posted speed
    double m_dGradePct; // climb in percent; negative downhill
    double m_dStopS;    // nominal standing time at the leg's end (traffic light, lay-by, parking); 0 none
    bool m_bTunnel;     // no view of the sky
};

// Where the drive starts and the road it takes.
struct Route {
    GeoPosition m_start;
    double m_dStartHeadingDeg; // degrees true
    double m_dStartAltitudeM;  // metres above sea level
    std::span<const RouteLeg> m_legs;
};

// The position `eastM` and `northM` metres away on the system's sphere. Meant for the few metres
// of one step: the spherical destination formula loses precision below about a kilometre.
GeoPosition offsetBy(const GeoPosition& position, double eastM, double northM);

// Leutkirch im Allgäu to Isny: town streets with a traffic light, a country road with a lay-by
// stop and a tunnel, and the next town. About 15 km.
Route demoRoute();

// The road of a route sampled every metre. Distances `s` are metres from the start, 0..lengthM();
// values between samples are interpolated.
class RoutePath {
public:
    struct Stop {
        double m_dAtM;
        double m_dNominalS; // seconds
    };

    explicit RoutePath(const Route& route);

    double lengthM() const { return static_cast<double>(m_samples.size() - 1); }
    GeoPosition positionAt(double s) const;
    double headingAt(double s) const;  // degrees true, 0..360
    double altitudeAt(double s) const; // metres above sea level
    // The leg the road belongs to at `s` (the one ending there at a leg boundary).
    const RouteLeg& legAt(double s) const;
    // Curvature at `s` in 1/m (0 on a straight).
    double curvatureAt(double s) const;
    const std::vector<Stop>& stops() const { return m_stops; }

private:
    struct Sample {
        GeoPosition m_pos;
        double m_dHeadingDeg;
        double m_dAltitudeM;
        double m_dCurvature;
        int m_nLeg;
    };
    // The sample at or after s, and the fraction of the way to it from the one before.
    size_t index(double s, double& fraction) const;

    std::span<const RouteLeg> m_legs;
    std::vector<Sample> m_samples;
    std::vector<Stop> m_stops;
};
