#pragma once

#include <cstdint>

// Universal Transverse Mercator on WGS 84 (scale 0.9996, false easting 500000 m, false northing
// 10000000 m in the south), with the Norway and Svalbard zone exceptions.
namespace UtmError {
enum : int {
    Latitude = 1,     // forward: latitude outside -80.5..84.5 deg; inverse: result outside that band
    Longitude = 2,    // longitude outside -pi..2pi
    Easting = 4,      // easting outside 100000..900000 m (the values are returned all the same)
    Northing = 8,     // northing outside 0..10000000 m (likewise)
    Zone = 16,        // inverse: zone outside 1..60
    Hemisphere = 32,  // inverse: hemisphere letter neither 'N' nor 'S'
    ZoneOverride = 64 // the zone override is neither the computed zone nor a neighbour of it
};
}

// `lat`, `lon` in radians; `lon` may be given in -pi..pi or 0..2pi. Outputs the zone 1..60, the
// hemisphere 'N' or 'S' and easting and northing in metres; returns the UtmError bits (0 = fine).
// On a latitude, longitude or override error the outputs are left unchanged. `zoneOverride`
// (0 = none) replaces the computed zone when it is that zone or a neighbour (1 and 60 are neighbours).
int GeodeticToUtm(double lat, double lon, int32_t& zone, char& hemisphere, double& easting, double& northing,
                  int32_t zoneOverride = 0);

// The inverse: zone 1..60, hemisphere 'N' or 'S', easting and northing in metres -> `lat` and `lon`
// in radians, `lon` in -pi..pi. Returns the UtmError bits; on a zone or hemisphere error, or with
// an easting or northing that is not a finite number, the outputs are left unchanged.
int UtmToGeodetic(int32_t zone, char hemisphere, double easting, double northing, double& lat, double& lon);
