#include "nav/GeoConstants.h"
#include "nav/MercatorMetres.h"
#include "nav/Mgrs.h"
#include "nav/Utm.h"

#include <gtest/gtest.h>

TEST(Grid, UtmZonesAndErrors) {
    struct Case {
        const char* legend;
        double lat, lon; // radians
        int32_t zoneOverride;
        int errors;
        int32_t zone; // 0: outputs left unchanged
        char hemisphere;
    } cases[] = {
        {"south-west Norway: 60N 5E is zone 32", 60 * DegToRad, 5 * DegToRad, 0, 0, 32, 'N'},
        {"Norway rule ends at 64N", 64.5 * DegToRad, 5 * DegToRad, 0, 0, 31, 'N'},
        {"Svalbard: 78N 10E is zone 33", 78 * DegToRad, 10 * DegToRad, 0, 0, 33, 'N'},
        {"Svalbard: 78N 8E is zone 31", 78 * DegToRad, 8 * DegToRad, 0, 0, 31, 'N'},
        {"Svalbard rule starts at 72N", 71.9 * DegToRad, 10 * DegToRad, 0, 0, 32, 'N'},
        {"longitude just west of 0 wraps into zone 30", 0.5, -0.0000001, 0, 0, 30, 'N'},
        {"the wrap constant, 1e-10 above 2 pi, puts -1e-11 rad into zone 31", 0.5, -1e-11, 0, 0, 31, 'N'},
        {"0..2pi convention: 357 deg is zone 30", -0.5, 357 * DegToRad, 0, 0, 30, 'S'},
        {"180 deg E starts zone 1", 0.1, Pi, 0, 0, 1, 'N'},
        {"latitude beyond 84.5", 84.6 * DegToRad, 0.1, 0, UtmError::Latitude, 0, 0},
        {"latitude and longitude both out", -81 * DegToRad, 7.0, 0, UtmError::Latitude | UtmError::Longitude,
         0, 0},
        {"override by a neighbour", 0.1, 0.1, 32, 0, 32, 'N'},
        {"override 60 is a neighbour of 1", 0.1, Pi + 0.05, 60, UtmError::Easting, 60, 'N'},
        {"override too far off", 0.1, 0.1, 34, UtmError::ZoneOverride, 0, 0},
        {"easting out of range far from the central meridian", 0.0, 40 * DegToRad, 36, UtmError::Easting, 36,
         'N'},
    };
    for (const Case& c : cases) {
        int32_t zone = 0;
        char hemisphere = 0;
        double easting = -1, northing = -1;
        EXPECT_EQ(GeodeticToUtm(c.lat, c.lon, zone, hemisphere, easting, northing, c.zoneOverride), c.errors)
            << c.legend;
        EXPECT_EQ(zone, c.zone) << c.legend;
        EXPECT_EQ(hemisphere, c.hemisphere) << c.legend;
        if (c.zone == 0) {
            EXPECT_EQ(easting, -1) << c.legend;
        }
    }
}

TEST(Grid, UtmInverseErrors) {
    struct Case {
        const char* legend;
        int32_t zone;
        char hemisphere;
        double easting, northing;
        int errors;
    } cases[] = {
        {"a point in zone 32", 32, 'N', 500000, 5300000, 0},
        {"zone 0", 0, 'N', 500000, 5300000, UtmError::Zone},
        {"hemisphere letter", 32, 'X', 500000, 5300000, UtmError::Hemisphere},
        {"easting far off: result given, flagged", 32, 'N', 50000, 5300000, UtmError::Easting},
        {"beyond 84.5 deg N", 32, 'N', 500000, 9500000, UtmError::Latitude},
        {"northing not a number", 32, 'S', 500000, std::nan(""), UtmError::Northing},
    };
    for (const Case& c : cases) {
        double lat = 0, lon = 0;
        EXPECT_EQ(UtmToGeodetic(c.zone, c.hemisphere, c.easting, c.northing, lat, lon), c.errors) << c.legend;
    }
}

TEST(Grid, MgrsReferences) {
    struct Case {
        const char* legend;
        double latDeg, lonDeg;
        int32_t precision;
        int errors;
        const char* mgrs;
    } cases[] = {
        // Letters from GeoConvert; its truncated digits are 8612130438: the easting 486121.64 m rounds up
        // here.
        {"Munich, one metre", 48.1, 11.5, 5, 0, "32UPU8612230438"},
        {"Munich, ten kilometres", 48.1, 11.5, 1, 0, "32UPU93"},
        {"precision 0: rounding to 100 km moves into the next square", 48.1, 11.5, 0, 0, "32UQU"},
        {"north polar cap, band Z", 89.0, 30.0, 5, 0, "  ZAG5551303848"},
        {"south polar cap, band A", -85.0, -30.0, 3, 0, "  AXS223810"},
        {"precision 6", 48.1, 11.5, 6, MgrsError::Precision, ""},
        {"latitude beyond the pole", 91.0, 0.0, 5, MgrsError::Latitude, ""},
        {"longitude beyond 360", 0.0, 361.0, 5, MgrsError::Longitude, ""},
    };
    for (const Case& c : cases) {
        QByteArray mgrs;
        EXPECT_EQ(GeodeticToMgrs(c.latDeg * DegToRad, c.lonDeg * DegToRad, c.precision, mgrs), c.errors)
            << c.legend;
        EXPECT_EQ(mgrs, QByteArray(c.mgrs)) << c.legend;
    }
}

TEST(Grid, MgrsRoundsHalfToEven) {
    struct Case {
        const char* legend;
        double metres;
        int32_t precision;
        double rounded;
    } cases[] = {
        {"above half rounds up", 486121.64, 5, 486122},
        {"below half rounds down", 486121.49, 5, 486121},
        {"half to the even 2", 486122.5, 5, 486122},
        {"half to the even 4", 486123.5, 5, 486124},
        {"10 m: half to the even", 486125.0, 4, 486120},
        {"10 m: half up to the even", 486135.0, 4, 486140},
        {"100 km", 450000.0, 0, 400000},
        {"100 km above half", 450001.0, 0, 500000},
    };
    for (const Case& c : cases)
        EXPECT_EQ(MgrsRoundToPrecision(c.metres, c.precision), c.rounded) << c.legend;
}

TEST(Grid, MercatorMetres) {
    struct Case {
        const char* legend;
        double latDeg, lonDeg;
        bool ok;
        int32_t x, y;
    } cases[] = {
        {"origin", 0.0, 0.0, true, 0, 0},
        {"truncated toward zero, not rounded", 48.0, 11.0, true, 1223146, 6100035},
        {"west and south truncate toward zero too", -48.0, -11.0, true, -1223146, -6100035},
        {"the pole has no y", 90.0, 0.0, false, 7, 7},
        {"beyond 32 bits", 0.0, 20000.0, false, 7, 7},
    };
    for (const Case& c : cases) {
        int32_t x = 7, y = 7;
        EXPECT_EQ(GeodeticToMercatorMetres(c.latDeg, c.lonDeg, x, y), c.ok) << c.legend;
        EXPECT_EQ(x, c.x) << c.legend;
        EXPECT_EQ(y, c.y) << c.legend;
        double lat = 0, lon = 0;
        if (c.ok && MercatorMetresToGeodetic(x, y, lat, lon)) {
            EXPECT_NEAR(lat, c.latDeg, 2e-5) << c.legend << ": inverse within a metre";
            EXPECT_NEAR(lon, c.lonDeg, 2e-5) << c.legend << ": inverse within a metre";
        }
    }
}
