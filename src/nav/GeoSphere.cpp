#include "nav/GeoSphere.h"

#include "nav/GeoConstants.h"

#include <cmath>

double GeoDistance(double lon1, double lat1, double lon2, double lat2, float* course) {
    // Spherical law of cosines on the co-latitudes a and b. The acos argument is deliberately not
    // clamped: rounding just beyond +-1 gives NaN, and the distance is then reported as 0.
    const double a = (90.0 - lat1) * DegToRad;
    const double b = (90.0 - lat2) * DegToRad;
    const double dl = std::abs(lon2 - lon1) * DegToRad;
    // Identical points are 0 km apart even where the argument rounds to just below 1 (up to 0.2 m off).
    const bool identical = lon1 == lon2 && lat1 == lat2;
    const double c =
        identical ? 0.0 : std::acos(std::cos(dl) * std::sin(b) * std::sin(a) + std::cos(b) * std::cos(a));

    if (course) {
        if (lon1 == lon2) {
            *course = static_cast<float>(lat1 < lat2 ? 0.0 : Pi);
        } else {
            const double angle =
                std::acos((std::cos(b) - std::cos(c) * std::cos(a)) / (std::sin(c) * std::sin(a)));
            *course = static_cast<float>(lon1 <= lon2 ? angle : 2.0 * Pi - angle);
        }
    }
    return c > 0 ? c * KmPerRadian : 0.0;
}

void GeoDestination(double lon, double lat, double distanceKm, double courseDeg, double& lon2, double& lat2) {
    // trunc rather than an int cast, which gives the same for every sensible course and cannot overflow
    if (courseDeg < 0) courseDeg += 360.0 * (1.0 - std::trunc(courseDeg / 360.0));
    if (courseDeg >= 360.0) courseDeg -= 360.0 * std::trunc(courseDeg / 360.0);

    const double d = distanceKm / KmPerRadian;
    const double a = (90.0 - lat) * DegToRad;
    const double c2 = std::acos(std::sin(d) * std::cos((360.0 - courseDeg) * DegToRad) * std::sin(a) +
                                std::cos(d) * std::cos(a));
    const double dl =
        (courseDeg == 0.0 || courseDeg == 180.0)
            ? 0.0
            : std::acos((std::cos(d) - std::cos(c2) * std::cos(a)) / (std::sin(c2) * std::sin(a)));
    lat2 = 90.0 - c2 * RadToDeg;
    lon2 = courseDeg < 180.0 ? lon + dl * RadToDeg : lon - dl * RadToDeg;
}
