#include "nav/PolarStereographic.h"

#include <cmath>

PolarStereographic::PolarStereographic(double semiMajorAxis, double flattening, double scale)
    : m_conformal(std::sqrt(flattening * (2.0 - flattening))) {
    const double e = m_conformal.eccentricity();
    m_dPoleScale =
        2.0 * scale * semiMajorAxis / std::sqrt(std::pow(1.0 + e, 1.0 + e) * std::pow(1.0 - e, 1.0 - e));
}

void PolarStereographic::forward(bool northPole, double lat, double lon, double& x, double& y) const {
    const double taup = m_conformal.tauPrime(std::tan(northPole ? lat : -lat));
    // tan of half the conformal colatitude, written so that it does not cancel near the pole.
    const double halfColat = 1.0 / (std::hypot(1.0, taup) + taup);
    const double rho = m_dPoleScale * halfColat;
    x = rho * std::sin(lon);
    y = northPole ? -rho * std::cos(lon) : rho * std::cos(lon);
}
