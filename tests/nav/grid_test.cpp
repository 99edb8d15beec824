#include "nav/GeoConstants.h"
#include "nav/Mgrs.h"
#include "nav/Utm.h"

#include <gtest/gtest.h>

// The Norway and Svalbard zones, a zone override and the MGRS precisions are in the tool transcript
// (tests/data/nav); the GeoConvert oracle compares the globe, zone and band edges and the polar caps.
TEST(Grid, UtmZonesAndErrors) {
    struct Case {
        const char* legend;
        double lat, lon; // radians
        int32_t zoneOverride;
        int errors;
        int32_t zone; // 0: outputs left unchanged
    } cases[] = {
        {"just west of 0 wraps into zone 30", 0.5, -0.0000001, 0, 0, 30},
        {"the wrap constant, 1e-10 above 2 pi, puts -1e-11 rad into zone 31", 0.5, -1e-11, 0, 0, 31},
        {"0..2pi convention: 357 deg is zone 30", -0.5, 357 * DegToRad, 0, 0, 30},
        {"both out", -81 * DegToRad, 7.0, 0, UtmError::Latitude | UtmError::Longitude, 0},
        {"override 60 is a neighbour of 1; easting far out", 0.1, Pi + 0.05, 60, UtmError::Easting, 60},
    };
    for (const Case& c : cases) {
        int32_t zone = 0;
        char hemisphere = 0;
        double easting = -1, northing = -1;
        EXPECT_EQ(GeodeticToUtm(c.lat, c.lon, zone, hemisphere, easting, northing, c.zoneOverride), c.errors)
            << c.legend;
        EXPECT_EQ(zone, c.zone) << c.legend;
        EXPECT_EQ(hemisphere, c.zone == 0 ? 0 : c.lat < 0 ? 'S' : 'N') << c.legend;
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
        {"ten kilometres", 48.1, 11.5, 1, 0, "32UPU93"},
        {"latitude beyond the pole", 91.0, 0.0, 5, MgrsError::Latitude, ""},
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
        {"half to the even 2", 486122.5, 5, 486122},
        {"half to the even 4", 486123.5, 5, 486124},
        {"10 m: half down to the even", 486125.0, 4, 486120},
        {"100 km", 450000.0, 0, 400000},
        {"100 km above half", 450001.0, 0, 500000},
    };
    for (const Case& c : cases)
        EXPECT_EQ(mgrsRoundToPrecision(c.metres, c.precision), c.rounded) << c.legend;
}
