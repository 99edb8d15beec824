#pragma once

// Great-circle arithmetic on the sphere of 111.12 km per degree (KmPerRadian). Positions are decimal
// degrees, longitude first. Pure functions without allocation, called in tight loops.

// Distance in km from (lon1, lat1) to (lon2, lat2). When `course` is given it receives the initial
// course in radians, 0..2 pi clockwise from north. The longitude difference is not wrapped: a course
// across the 180 deg meridian points the long way round. Identical points: distance 0, course pi.
double GeoDistance(double lon1, double lat1, double lon2, double lat2, float* course = nullptr);

// The position (lon2, lat2) in degrees reached from (lon, lat) after `distanceKm` along the initial
// course `courseDeg` (degrees clockwise from north, any value: it is brought into 0..360).
void GeoDestination(double lon, double lat, double distanceKm, double courseDeg, double& lon2, double& lat2);
