#include "maps/MapCalibration.h"
#include "maps/OziMapFile.h"

#include <gtest/gtest.h>

// Imports, exports and their residuals are in the tool transcript (tests/data/maps) and checked against
// GDAL; the transcript's maps all lie north and east of Greenwich.
TEST(MapImport, OziExportKeepsWestAndSouth) {
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
    EXPECT_NEAR(ozi.points[1].lon, -7.6, 1e-8);
    EXPECT_NEAR(ozi.points[1].lat, -46.7, 1e-8);
    ASSERT_EQ(ozi.corners.size(), 4u);
    EXPECT_NEAR(ozi.corners[0].lon, -8.0, 1e-6);
}
