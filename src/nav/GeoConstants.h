#pragma once

#include <cmath>

// Angle constants shared by every geographic computation. They are derived from atan(1.0) when the
// program starts rather than typed as literals, so that all parts of the system agree to the last bit.
inline const double Pi = 4.0 * std::atan(1.0);
inline const double DegToRad = Pi * 0.005555555555555556; // the literal is 1/180
inline const double RadToDeg = 180.0 / Pi;
// The earth as a sphere on which one degree of arc is 111.12 km (60 nautical miles of 1.852 km):
// 6366.707019493709 km. Every distance of the system in km comes from this one factor.
inline const double KmPerRadian = RadToDeg * 111.12;
