#include "maps/DistanceFromSpot.h"

#include "nav/GeoConstants.h"

#include <cmath>

CDistanceFromSpot::CDistanceFromSpot(double lon, double lat) : m_dLong(lon), m_dLat(lat) {
    Colatitude(lat, m_dSinColat, m_dCosColat);
}

void CDistanceFromSpot::Colatitude(double lat, double& sinColat, double& cosColat) {
    const double colatitude = (90.0 - lat) * DegToRad;
    sinColat = std::sin(colatitude);
    cosColat = std::cos(colatitude);
}

double CDistanceFromSpot::Km(double lon, double lat, double sinColat, double cosColat) const {
    if (lon == m_dLong && lat == m_dLat) return 0.0;
    const double dl = std::abs(lon - m_dLong) * DegToRad;
    // As GeoDistance: unclamped, so rounding beyond +-1 gives NaN and thus 0 km.
    const double c = std::acos(std::cos(dl) * sinColat * m_dSinColat + cosColat * m_dCosColat);
    return c > 0 ? c * KmPerRadian : 0.0;
}
