#pragma once

#include "nav/ConformalLatitude.h"

// Ellipsoidal polar stereographic projection centred on the north pole (the south pole is its mirror
// image). Works in metres and radians, without false easting or northing.
class PolarStereographic {
public:
    // `semiMajorAxis` in metres, `flattening` f, `scale` k0 at the pole.
    PolarStereographic(double semiMajorAxis, double flattening, double scale);

    // `lat` and `lon` in radians -> `x` (towards longitude 90° E) and `y` (towards longitude 180°) in metres.
    // With `northPole` false the projection is centred on the south pole and `y` points to longitude 0°.
    void forward(bool northPole, double lat, double lon, double& x, double& y) const;

private:
    ConformalLatitude m_conformal;
    double m_dPoleScale; // 2 k0 a / sqrt((1+e)^(1+e) (1-e)^(1-e)): the radius per unit of tan(colatitude/2)
};
