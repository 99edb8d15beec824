#include "maps/DistanceFromSpot.h"
#include "nav/GeoSphere.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

// The map choice's scores must be GeoDistance's to the bit, or the catalogue would sort differently.
TEST(DistanceFromSpot, GivesGeoDistanceToTheBit) {
    std::mt19937 random(11);
    const auto uniform = [&](double low, double high) {
        return low + (high - low) * (random() / 4294967296.0);
    };
    std::vector<std::pair<double, double>> points = {{0, 0},   {0, 90},   {0, -90},
                                                     {180, 0}, {-180, 0}, {11.5, 48.5}};
    for (int i = 0; i < 2000; ++i)
        points.emplace_back(uniform(-180, 180), uniform(-90, 90));
    for (int i = 0; i < 200; ++i) // near neighbours, where the law of cosines rounds hardest
        points.emplace_back(11.5 + uniform(-1e-6, 1e-6), 48.5 + uniform(-1e-6, 1e-6));
    for (size_t i = 0; i < points.size(); i += 7) {
        const auto [lon1, lat1] = points[i];
        const CDistanceFromSpot spot(lon1, lat1);
        for (const auto& [lon2, lat2] : points) {
            double sinColat, cosColat;
            CDistanceFromSpot::Colatitude(lat2, sinColat, cosColat);
            const double expected = GeoDistance(lon1, lat1, lon2, lat2);
            const double actual = spot.Km(lon2, lat2, sinColat, cosColat);
            ASSERT_EQ(std::memcmp(&expected, &actual, sizeof(double)), 0)
                << lon1 << "," << lat1 << " to " << lon2 << "," << lat2 << ": " << expected << " vs "
                << actual;
        }
    }
}
