#include "nav/MercatorMetres.h"

#include "nav/GeoConstants.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kSphereRadius = 6371014.35683041; // metres

bool fitsInt32(double value) {
    return value > std::numeric_limits<int32_t>::min() - 1.0 &&
           value < std::numeric_limits<int32_t>::max() + 1.0;
}

} // namespace

bool GeodeticToMercatorMetres(double latDeg, double lonDeg, int32_t& x, int32_t& y) {
    if (!(latDeg > -90.0 && latDeg < 90.0)) return false;
    const double east = lonDeg * DegToRad * kSphereRadius;
    const double north = std::log(std::tan((latDeg * (1.0 / 360.0) + 0.25) * Pi)) * kSphereRadius;
    if (!fitsInt32(east) || !fitsInt32(north)) return false;
    x = static_cast<int32_t>(east);
    y = static_cast<int32_t>(north);
    return true;
}

bool mercatorMetresToGeodetic(double x, double y, double& latDeg, double& lonDeg) {
    if (!std::isfinite(x) || !std::isfinite(y)) return false;
    lonDeg = x / kSphereRadius * RadToDeg;
    latDeg = (2.0 * std::atan(std::exp(y / kSphereRadius)) - 0.5 * Pi) * RadToDeg;
    return true;
}
