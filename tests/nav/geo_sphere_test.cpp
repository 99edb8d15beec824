#include "nav/GeoConstants.h"
#include "nav/GeoSphere.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace {

// The independent oracle: haversine and the spherical direct problem on the sphere of 111.12 km per
// degree, from the textbook formulas with std::numbers::pi rather than the system's constants.
constexpr double kDeg = std::numbers::pi / 180.0;
constexpr double kRadiusKm = 111.12 / kDeg;

double haversineKm(double lon1, double lat1, double lon2, double lat2) {
    const double h =
        std::pow(std::sin((lat2 - lat1) * kDeg / 2), 2) +
        std::cos(lat1 * kDeg) * std::cos(lat2 * kDeg) * std::pow(std::sin((lon2 - lon1) * kDeg / 2), 2);
    return 2 * kRadiusKm * std::asin(std::sqrt(h));
}

double uniform(std::mt19937& random, double low, double high) {
    return low + (high - low) * (random() / 4294967296.0);
}

} // namespace

// Identical points, northwards, across 180 deg and the courses 360 and -90 are in the tool transcript
// (tests/data/nav).
TEST(GeoSphere, CourseSpecialCases) {
    struct Case {
        const char* legend;
        double lon1, lat1, lon2, lat2;
        float course;
    } cases[] = {
        {"same meridian southwards", 11.5, 49.0, 11.5, 48.0, float(Pi)},
        {"along the equator eastwards", 0.0, 0.0, 1.0, 0.0, float(Pi / 2)},
    };
    for (const Case& c : cases) {
        float course = -1.0f;
        EXPECT_NEAR(GeoDistance(c.lon1, c.lat1, c.lon2, c.lat2, &course), 111.12, 1e-9) << c.legend;
        EXPECT_NEAR(course, c.course, 1e-6) << c.legend;
    }
}

TEST(GeoSphere, DestinationNormalisesTheCourse) {
    struct Case {
        const char* legend;
        double course, sameAsCourse;
    } cases[] = {
        {"-360 is 0", -360.0, 0.0},
        {"-450 is 270", -450.0, 270.0},
        {"725 is 5", 725.0, 5.0},
        {"due south", 180.0, 180.0},
    };
    for (const Case& c : cases) {
        double lon = 0, lat = 0, lonExpected = 0, latExpected = 0;
        GeoDestination(11.0, 48.0, 111.12, c.course, lon, lat);
        GeoDestination(11.0, 48.0, 111.12, c.sameAsCourse, lonExpected, latExpected);
        EXPECT_NEAR(lon, lonExpected, 1e-9) << c.legend;
        EXPECT_NEAR(lat, latExpected, 1e-9) << c.legend;
        if (c.sameAsCourse == 0 || c.sameAsCourse == 180) {
            EXPECT_EQ(lon, 11.0) << c.legend << ": due north or south keeps the longitude exactly";
            EXPECT_NEAR(lat, c.sameAsCourse == 0 ? 49.0 : 47.0, 1e-9) << c.legend;
        }
    }
}

// Seeded pairs 100 to 12,000 km apart: away from the antipodes and from very short distances, where
// the law of cosines loses digits.
TEST(GeoSphere, AgreesWithHaversineOracle) {
    std::mt19937 random(20240404);
    for (int compared = 0; compared < 5000;) {
        const double lon1 = uniform(random, -180, 180), lat1 = uniform(random, -85, 85);
        const double lon2 = lon1 + uniform(random, -179, 179), lat2 = uniform(random, -85, 85);
        const double km = haversineKm(lon1, lat1, lon2, lat2);
        if (km < 100 || km > 12000) continue;
        ++compared;
        float course = 0;
        EXPECT_NEAR(GeoDistance(lon1, lat1, lon2, lat2, &course), km, km * 1e-9) << lon1 << ' ' << lat1;
        const double dl = (lon2 - lon1) * kDeg;
        const double oracleCourse =
            std::atan2(std::sin(dl) * std::cos(lat2 * kDeg),
                       std::cos(lat1 * kDeg) * std::sin(lat2 * kDeg) -
                           std::sin(lat1 * kDeg) * std::cos(lat2 * kDeg) * std::cos(dl));
        EXPECT_NEAR(std::remainder(course - oracleCourse, 2 * std::numbers::pi), 0.0, 2e-6)
            << lon1 << ' ' << lat1;

        const double bearing = uniform(random, 0.5, 179.5) + (random() % 2 ? 180 : 0), delta = km / kRadiusKm;
        double lonTo = 0, latTo = 0;
        GeoDestination(lon1, lat1, km, bearing, lonTo, latTo);
        const double latOracle =
            std::asin(std::sin(lat1 * kDeg) * std::cos(delta) +
                      std::cos(lat1 * kDeg) * std::sin(delta) * std::cos(bearing * kDeg));
        const double lonOracle =
            lon1 * kDeg + std::atan2(std::sin(bearing * kDeg) * std::sin(delta) * std::cos(lat1 * kDeg),
                                     std::cos(delta) - std::sin(lat1 * kDeg) * std::sin(latOracle));
        EXPECT_LT(haversineKm(lonTo, latTo, lonOracle / kDeg, latOracle / kDeg), km * 1e-9)
            << lon1 << ' ' << lat1;
    }
}
