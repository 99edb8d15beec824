#include "nav/Utm.h"

#include "nav/GeoConstants.h"
#include "nav/TransverseMercator.h"
#include "nav/Wgs84.h"

#include <cmath>
#include <cstdlib>

namespace {

constexpr double kMinLat = -1.4049900478554351; // -80.5 deg
constexpr double kMaxLat = 1.4748032179352084;  // 84.5 deg
constexpr double kMinLon = -3.141592653589793;
constexpr double kMaxLon = 6.283185307179586;
// Not quite 2 pi (it differs in the tenth decimal place); kept exactly, so negative longitudes
// are shifted by about 1e-10 rad just as they always were.
constexpr double kLonWrap = 6.283185307279586;
constexpr double kDegPerRad = 57.29577951308232;
constexpr double kFalseEasting = 500000.0;
constexpr double kFalseNorthingSouth = 10000000.0;

const TransverseMercator& utmProjection() {
    static const TransverseMercator projection(Wgs84::kSemiMajorAxis, Wgs84::kFlattening, 0.9996);
    return projection;
}

int32_t zoneFor(double lat, double lon) {
    const double lonDegExact = lon * kDegPerRad;
    const int latDeg = static_cast<int>(lat * kDegPerRad);
    const int lonDeg = static_cast<int>(lonDegExact);
    int32_t zone =
        lon >= Pi ? static_cast<int32_t>(lonDegExact / 6 - 29) : static_cast<int32_t>(lonDegExact / 6 + 31);
    if (zone > 60) zone = 1;
    // South-west Norway
    if (latDeg >= 56 && latDeg < 64) {
        if (lonDeg >= 0 && lonDeg < 3)
            zone = 31;
        else if (lonDeg >= 3 && lonDeg < 12)
            zone = 32;
    }
    // Svalbard
    if (latDeg > 71) {
        if (lonDeg >= 0 && lonDeg < 9)
            zone = 31;
        else if (lonDeg >= 9 && lonDeg < 21)
            zone = 33;
        else if (lonDeg >= 21 && lonDeg < 33)
            zone = 35;
        else if (lonDeg >= 33 && lonDeg < 42)
            zone = 37;
    }
    return zone;
}

bool areNeighbourZones(int32_t a, int32_t b) {
    const int32_t diff = std::abs(a - b);
    return diff <= 1 || diff == 59;
}

// In the 0..360 degree convention of the zone numbers, in radians.
double centralMeridian(int32_t zone) {
    return (zone >= 31 ? 6.0 * zone - 183.0 : 6.0 * zone + 177.0) * DegToRad;
}

int rangeErrors(double easting, double northing) {
    int errors = 0;
    if (!(easting >= 100000.0 && easting <= 900000.0)) errors |= UtmError::Easting;
    if (!(northing >= 0.0 && northing <= 10000000.0)) errors |= UtmError::Northing;
    return errors;
}

} // namespace

int GeodeticToUtm(double lat, double lon, int32_t& zone, char& hemisphere, double& easting, double& northing,
                  int32_t zoneOverride) {
    int errors = 0;
    if (!(lat >= kMinLat && lat <= kMaxLat)) errors |= UtmError::Latitude;
    if (!(lon >= kMinLon && lon <= kMaxLon)) errors |= UtmError::Longitude;
    if (errors) return errors;

    if (lon < 0) lon += kLonWrap;
    int32_t chosenZone = zoneFor(lat, lon);
    if (zoneOverride != 0) {
        if (zoneOverride < 1 || zoneOverride > 60 || !areNeighbourZones(zoneOverride, chosenZone))
            return UtmError::ZoneOverride;
        chosenZone = zoneOverride;
    }

    double x = 0.0;
    double y = 0.0;
    utmProjection().forward(lat, lon - centralMeridian(chosenZone), x, y);
    zone = chosenZone;
    hemisphere = lat < 0 ? 'S' : 'N';
    easting = kFalseEasting + x;
    northing = lat < 0 ? y + kFalseNorthingSouth : y;
    return rangeErrors(easting, northing);
}

int UtmToGeodetic(int32_t zone, char hemisphere, double easting, double northing, double& lat, double& lon) {
    int errors = 0;
    if (zone < 1 || zone > 60) errors |= UtmError::Zone;
    if (hemisphere != 'N' && hemisphere != 'S') errors |= UtmError::Hemisphere;
    if (!std::isfinite(easting)) errors |= UtmError::Easting;
    if (!std::isfinite(northing)) errors |= UtmError::Northing;
    if (errors) return errors;

    errors = rangeErrors(easting, northing);
    const double y = hemisphere == 'S' ? northing - kFalseNorthingSouth : northing;
    double dLon = 0.0;
    utmProjection().reverse(easting - kFalseEasting, y, lat, dLon);
    lon = std::remainder(centralMeridian(zone) + dLon, 2.0 * Pi);
    if (!(lat >= kMinLat && lat <= kMaxLat)) errors |= UtmError::Latitude;
    return errors;
}
