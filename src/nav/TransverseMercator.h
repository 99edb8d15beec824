#pragma once

#include "nav/ConformalLatitude.h"

#include <array>

// Ellipsoidal Transverse Mercator by Krüger's series to sixth order in the third flattening n:
// agrees with the exact mapping to a few nanometres within 35 degrees of the central meridian.
// Works in metres and radians, without false easting or northing.
class TransverseMercator {
public:
    // `semiMajorAxis` in metres, `flattening` f, `scale` k0 on the central meridian.
    TransverseMercator(double semiMajorAxis, double flattening, double scale);

    // `lat` and `dLon` (longitude minus the central meridian, any value; taken modulo 2 pi) in radians
    // -> `x` east of the central meridian and `y` north of the equator, in metres.
    void forward(double lat, double dLon, double& x, double& y) const;
    // The inverse: `x`, `y` in metres -> `lat` and `dLon` (-pi..pi) in radians.
    void reverse(double x, double y, double& lat, double& dLon) const;

private:
    static constexpr int kOrder = 6;
    ConformalLatitude m_conformal;
    double m_dScaledRadius;               // k0 * A, A the rectifying radius
    std::array<double, kOrder> m_alpha{}; // forward series coefficients, alpha_1..alpha_6
    std::array<double, kOrder> m_beta{};  // inverse series coefficients, beta_1..beta_6
};
