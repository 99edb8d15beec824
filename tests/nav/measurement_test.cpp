#include "nav/GeoSphere.h"
#include "nav/track/Measurement.h"

#include <gtest/gtest.h>

namespace {

// A square of `sideKm` whose south-west corner is (lon, lat), walked with GeoDestination: north,
// east, south.
TrackVertices square(double lon, double lat, double sideKm) {
    TrackVertices ring{{lon, lat}};
    for (const double course : {0.0, 90.0, 180.0}) {
        double lon2 = 0, lat2 = 0;
        GeoDestination(ring.back().m_dLon, ring.back().m_dLat, sideKm, course, lon2, lat2);
        ring.push_back({lon2, lat2});
    }
    return ring;
}

} // namespace

TEST(Measurement, ASquareOfKnownSideGivesItsArea) {
    const struct {
        const char* legend;
        double lon, lat, sideKm;
    } cases[] = {
        {"a field of 100 m in Bavaria", 11.5, 48.1, 0.1},
        {"a square kilometre at the equator", 20.0, 0.5, 1.0},
        {"10 km in the far north", 25.0, 69.0, 10.0},
        {"2 km in the south and west", -58.4, -34.6, 2.0},
    };
    for (const auto& c : cases) {
        const double expected = c.sideKm * c.sideKm * 1e6;
        EXPECT_NEAR(EnclosedSquareMetres(square(c.lon, c.lat, c.sideKm)), expected, expected * 0.005)
            << c.legend;
        TrackVertices reversed = square(c.lon, c.lat, c.sideKm);
        std::reverse(reversed.begin(), reversed.end());
        EXPECT_NEAR(EnclosedSquareMetres(reversed), expected, expected * 0.005)
            << c.legend << ", anticlockwise";
        // Three sides walked: the length along the points, not round the ring.
        EXPECT_NEAR(MeasuredKm(square(c.lon, c.lat, c.sideKm)), 3 * c.sideKm, 3 * c.sideKm * 1e-6)
            << c.legend;
    }
    EXPECT_EQ(EnclosedSquareMetres({{11, 48}, {11.1, 48}}), 0.0) << "two points enclose nothing";
}

TEST(Measurement, AreaTextChoosesItsUnit) {
    const struct {
        double squareMetres;
        const char* text;
    } cases[] = {
        {0, "0 m²"},         {850.4, "850 m²"},   {9999, "9999 m²"}, {10000, "1.0 ha"},
        {125000, "12.5 ha"}, {999000, "99.9 ha"}, {1e6, "1.00 km²"}, {3.2e6, "3.20 km²"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(AreaText(c.squareMetres), QString::fromUtf8(c.text)) << c.squareMetres;
}
