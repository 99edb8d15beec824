#pragma once

#include <cstdint>

// The spherical Mercator metre grid of the Falk and Marco Polo navigation programs
// (sphere radius 6371014.35683041 m, origin at 0 deg N 0 deg E).

// `latDeg`, `lonDeg` in degrees -> `x` (east) and `y` (north) in whole metres, truncated toward zero.
// False, with the outputs unchanged, when the latitude is not strictly between -90 and 90 or a
// result does not fit into 32 bits.
bool GeodeticToMercatorMetres(double latDeg, double lonDeg, int32_t& x, int32_t& y);

// The inverse for typed targets: `x`, `y` in metres -> degrees. False for values that are not finite.
bool mercatorMetresToGeodetic(double x, double y, double& latDeg, double& lonDeg);
