#include "maps/MapImport.h"
#include "maps/OziMapFile.h"
#include "maps/WorldFile.h"
#include "support/TestData.h"

#include <QFile>
#include <cmath>
#include <gtest/gtest.h>

namespace {

QString importFile(const char* name) {
    return testDataDir() + "/maps/import/" + name;
}

} // namespace

// The test maps: 400 x 300 pixels over 8.0..8.4 E, 47.0..47.3 N, x = 1000 (lon - 8), y = 1000 (47.3 - lat).
// Of six points, the four spanning the largest area are fitted and every point's residual is reported.
TEST(MapImport, OziExplorerMapOfManyPoints) {
    MapImport outlier;
    QString error;
    ASSERT_TRUE(ImportOziMap(importFile("ozi-outlier.map"), QString(), outlier, error));
    EXPECT_EQ(outlier.calibration.PointCount(), 4);
    EXPECT_EQ(outlier.quality.warnings.value(0), "points 1, 2, 3, 4 of 6 used (the largest area)");
    ASSERT_EQ(outlier.quality.residuals.size(), 6u);
    // Point 6 lies 0.003 deg east of its pixel: 3 pixels, 0.003 x 111120 m x cos(47.1 deg) = 226.9 m.
    EXPECT_NEAR(outlier.quality.residuals[5].dDxPixels, 3.0, 1e-6);
    EXPECT_NEAR(outlier.quality.residuals[5].dMetres, 226.9, 0.1);
    EXPECT_NEAR(outlier.quality.residuals[4].dDxPixels, 0.0, 1e-6);
    double lon, lat;
    outlier.calibration.PixelToGeo(200, 150, lon, lat);
    EXPECT_NEAR(lon, 8.2, 1e-9);
    EXPECT_NEAR(lat, 47.15, 1e-9);
}

TEST(MapImport, ExportsReadBack) {
    MapCalibration map("/maps/karte.png");
    map.SetMapSize(Size{400, 300});
    map.SetPoint(0, Point{0, 300}, -8.0, -47.0);
    map.SetPoint(1, Point{400, 0}, -7.6, -46.7);
    map.SetPoint(2, Point{400, 300}, -7.6, -47.0);

    OziMapData ozi;
    QString error;
    ASSERT_TRUE(ReadOziMap(WriteOziMap(map), ozi, error)) << error.toStdString();
    EXPECT_EQ(ozi.strImageName, "karte.png");
    EXPECT_EQ(ozi.size, (Size{400, 300}));
    ASSERT_EQ(ozi.points.size(), 3u);
    EXPECT_EQ(ozi.points[1].pixel, (Point{400, 0}));
    EXPECT_NEAR(ozi.points[1].lon, -7.6, 1e-8) << "west and south keep their signs";
    EXPECT_NEAR(ozi.points[1].lat, -46.7, 1e-8);
    ASSERT_EQ(ozi.corners.size(), 4u);
    EXPECT_NEAR(ozi.corners[0].lon, -8.0, 1e-6);

    const auto world = WriteWorldFile(map);
    ASSERT_TRUE(world.has_value());
    WorldFile back;
    ASSERT_TRUE(ReadWorldFile(*world, back, error));
    double lon, lat;
    ASSERT_TRUE(WorldToGeo(back, WorldUnits{WorldUnits::Degrees}, 400, 0, lon, lat));
    EXPECT_NEAR(lon, -7.6, 1e-12);
    EXPECT_NEAR(lat, -46.7, 1e-12);

    map.SetPoint(3, Point{0, 0}, -8.0, -46.7);
    EXPECT_FALSE(WriteWorldFile(map).has_value()) << "four points are projective";
}
