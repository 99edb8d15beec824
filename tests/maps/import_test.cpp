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
TEST(MapImport, OziExplorerMaps) {
    const struct {
        const char* legend;
        const char* file;
        const char* error; // part of the message, "" for a successful import
        int count;
        const char* note; // first warning
    } cases[] = {
        {"four points in degrees and minutes", "ozi.map", "", 4, ""},
        {"six points: the four of the largest area", "ozi-outlier.map", "", 4,
         "points 1, 2, 3, 4 of 6 used (the largest area)"},
        {"UTM grid points", "ozi-utm.map", "", 4, ""},
        {"no points: the MMPLL corners", "ozi-corners.map", "", 4, ""},
        {"another datum is refused by name", "ozi-ch1903.map", "datum is \"CH-1903\", not WGS 84", 0, ""},
        {"NaN, huge and out-of-range values leave no point", "ozi-broken.map", "0 usable calibration points",
         0, ""},
        {"not an OziExplorer file", "world-deg.pgw", "not an OziExplorer .map file", 0, ""},
    };
    for (const auto& c : cases) {
        MapImport imported;
        QString error;
        const bool ok = ImportOziMap(importFile(c.file), QString(), imported, error);
        EXPECT_EQ(ok, !*c.error) << c.legend;
        if (!ok) {
            EXPECT_TRUE(error.contains(c.error)) << c.legend << ": " << error.toStdString();
            continue;
        }
        EXPECT_EQ(imported.calibration.PointCount(), c.count) << c.legend;
        EXPECT_TRUE(imported.calibration.Verify()) << c.legend;
        EXPECT_EQ(imported.calibration.MapSize(), (Size{400, 300})) << c.legend;
        EXPECT_EQ(imported.quality.warnings.value(0), c.note) << c.legend;
    }

    MapImport outlier;
    QString error;
    ASSERT_TRUE(ImportOziMap(importFile("ozi-outlier.map"), QString(), outlier, error));
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

TEST(MapImport, WorldFiles) {
    const struct {
        const char* legend;
        const char* file;
        const char* utm;
        const char* error;
        double lonTopLeft, latTopLeft; // of pixel (0, 0)
    } cases[] = {
        // The file names the centre of the top-left pixel, 8.0005 E 47.2995 N; its corner is half a pixel
        // off.
        {"degrees", "world-deg.pgw", "", "", 8.0, 47.3},
        // Turned: its corner is 431832.438 E 5227782.367 N, which gdaltransform puts at 8.0999934
        // E 47.1999977 N.
        {"UTM zone 32 north", "world-utm.jgw", "32N", "", 8.09999343744798, 47.1999976988124},
        {"a zone that does not exist", "world-utm.jgw", "61", "not a UTM zone: 61", 0, 0},
        {"five numbers and a NaN", "bad.wld", "", "line 3 of the world file is not a number", 0, 0},
    };
    for (const auto& c : cases) {
        MapImport imported;
        QString error;
        const bool ok = ImportWorldFile(importFile(c.file), QString(), c.utm, imported, error);
        EXPECT_EQ(ok, !*c.error) << c.legend;
        if (!ok) {
            EXPECT_TRUE(error.contains(c.error)) << c.legend << ": " << error.toStdString();
            continue;
        }
        double lon, lat;
        imported.calibration.PixelToGeo(0, 0, lon, lat);
        EXPECT_NEAR(lon, c.lonTopLeft, 1e-9) << c.legend;
        EXPECT_NEAR(lat, c.latTopLeft, 1e-9) << c.legend;
        EXPECT_EQ(imported.quality.residuals.size(), 9u) << c.legend;
    }
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
