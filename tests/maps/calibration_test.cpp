#include "maps/MapCalibration.h"
#include "nav/GeoSphere.h"

#include <gtest/gtest.h>

namespace {

// 1000 x 800 pixels over 11..12 deg E, 48..49 deg N: x = 1000 (lon - 11), y = 800 (49 - lat).
MapCalibration twoPointMap() {
    MapCalibration map;
    map.SetMapSize(Size{1000, 800});
    map.SetPoint(0, Point{0, 800}, 11.0, 48.0);
    map.SetPoint(1, Point{1000, 0}, 12.0, 49.0);
    return map;
}

} // namespace

// The fits' matrices, boxes and scales, the roundings, Contains and the projective centre are in the
// tool transcript (tests/data/maps).
TEST(Calibration, SetPointLowersTheIndexAndRefits) {
    const struct {
        const char* legend;
        int pointsBefore, index, result, countAfter, slotWritten;
    } cases[] = {
        {"index above the count goes to the count", 1, 3, 1, 2, 1},
        {"index 4 fails", 1, 4, 0, 1, -1},
        {"index equal to the count appends", 2, 2, 1, 3, 2},
        {"index below the count overwrites", 3, 1, 1, 3, 1},
    };
    const Point pixels[3] = {{0, 800}, {1000, 0}, {1000, 800}};
    const double lons[3] = {11, 12, 12}, lats[3] = {48, 49, 48};
    for (const auto& c : cases) {
        MapCalibration map;
        map.SetMapSize(Size{1000, 800});
        for (int i = 0; i < c.pointsBefore; ++i)
            map.SetPoint(i, pixels[i], lons[i], lats[i]);
        map.ClearModified();
        EXPECT_EQ(map.SetPoint(c.index, Point{7, 9}, 11.5, 48.5), c.result) << c.legend;
        EXPECT_EQ(map.PointCount(), c.countAfter) << c.legend;
        EXPECT_EQ(map.IsModified(), c.result == 1) << c.legend;
        if (c.slotWritten >= 0) {
            EXPECT_EQ(map.GetPointPixel(c.slotWritten), (Point{7, 9})) << c.legend;
        }
    }
}

TEST(Calibration, DeletePointShiftsAndKeepsThePlaceholder) {
    MapCalibration one;
    one.SetMapSize(Size{1000, 800});
    one.SetPoint(0, Point{10, 20}, 11.0, 48.0);
    ASSERT_EQ(one.GeoToPixel(11.0, 48.0), (Point{10, 20}));
    one.ClearModified();
    EXPECT_EQ(one.DeletePoint(0), 1);
    EXPECT_EQ(one.PointCount(), 0);
    EXPECT_TRUE(one.IsModified());
    EXPECT_EQ(one.GeoToPixel(11.0, 48.0), (Point{10, 20})) << "the one-point placeholder stays";
    EXPECT_EQ(one.GetPointPixel(0), (Point{-1, -1}));
    EXPECT_EQ(one.DeletePoint(0), 0);

    MapCalibration three = twoPointMap();
    three.SetPoint(2, Point{1000, 800}, 12.0, 48.0);
    EXPECT_EQ(three.DeletePoint(3), 0);
    EXPECT_EQ(three.DeletePoint(0), 1);
    EXPECT_EQ(three.PointCount(), 2);
    EXPECT_EQ(three.GetPointPixel(0), (Point{1000, 0}));
    EXPECT_EQ(three.GetPointPixel(1), (Point{1000, 800}));
    EXPECT_FALSE(three.Verify()) << "two points on one meridian are refitted and fail";
}

TEST(Calibration, SetPointsNeedsTwoAndLeavesTheModifiedFlag) {
    const Point pixels[6] = {{0, 800}, {1000, 0}, {0, 0}, {1000, 800}, {5, 5}, {6, 6}};
    const double lons[6] = {11, 12, 11, 12, 0, 0}, lats[6] = {48, 49, 49, 48, 0, 0};
    MapCalibration map;
    map.SetMapSize(Size{1000, 800});
    EXPECT_EQ(map.SetPoints(1, pixels, lons, lats), 0);
    EXPECT_EQ(map.PointCount(), 0);
    EXPECT_EQ(map.SetPoints(6, pixels, lons, lats), 1);
    EXPECT_EQ(map.PointCount(), 4) << "clamped to four";
    EXPECT_TRUE(map.Verify());
    EXPECT_FALSE(map.IsModified());
}

TEST(Calibration, AutoCalibrateSpansASquareOfAtLeastATenthKm) {
    const struct {
        const char* legend;
        double lonA, lonB, latC, latD, factor;
        int count;
        double halfDiagonalKm;
    } cases[] = {
        {"100 m wide, factor 1.5", 11.0, 11.0 + 0.1 / 74.3533, 48.0, 48.0, 1.5, 2, 0.15},
        {"tiny rectangle", 11.0, 11.00001, 48.0, 48.00001, 1.5, 2, 0.1},
        {"taller than wide", 11.0, 11.001, 48.0, 49.0, 0.5, 2, 111.12 * 0.5},
        {"B = 0 places nothing", 11.0, 0.0, 48.0, 49.0, 1.5, 0, 0},
    };
    for (const auto& c : cases) {
        MapCalibration map;
        map.SetMapSize(Size{600, 300});
        map.AutoCalibrate(c.lonA, c.lonB, c.latC, c.latD, c.factor);
        ASSERT_EQ(map.PointCount(), c.count) << c.legend;
        if (c.count == 0) continue;
        EXPECT_EQ(map.GetPointPixel(0), (Point{0, 300})) << c.legend;
        EXPECT_EQ(map.GetPointPixel(1), (Point{600, 0})) << c.legend;
        double lonSw, latSw, lonNe, latNe;
        map.GetPointGeo(0, lonSw, latSw);
        map.GetPointGeo(1, lonNe, latNe);
        const double lonC = (c.lonA + c.lonB) * 0.5, latC = (c.latC + c.latD) * 0.5;
        EXPECT_NEAR(GeoDistance(lonC, latC, lonSw, latSw), c.halfDiagonalKm, 1e-3 * c.halfDiagonalKm)
            << c.legend;
        EXPECT_NEAR(GeoDistance(lonC, latC, lonNe, latNe), c.halfDiagonalKm, 1e-3 * c.halfDiagonalKm)
            << c.legend;
        EXPECT_LT(lonSw, lonC);
        EXPECT_LT(latSw, latC);
    }
    MapCalibration noImage;
    noImage.AutoCalibrate(11.0, 12.0, 48.0, 49.0, 1.5);
    EXPECT_EQ(noImage.PointCount(), 0) << "without a size no points are placed";
}

TEST(Calibration, CentreAndBlankImage) {
    MapCalibration map;
    double lon = 1, lat = 1;
    EXPECT_EQ(map.GetCentre(lon, lat), 0);
    EXPECT_FALSE(map.Contains(0.5, 0.5)) << "no points";
    EXPECT_EQ(lon, 0.0);
    EXPECT_EQ(lat, 0.0);
    ASSERT_TRUE(map.CreateBlank(61, 40));
    EXPECT_EQ(map.MapSize(), (Size{61, 40}));
    EXPECT_EQ(map.Image().pixel(60, 39), 0xFFFFFFFFu);
    map = twoPointMap();
    EXPECT_EQ(map.GetCentre(lon, lat), 1);
    EXPECT_NEAR(lon, 11.5, 1e-12);
    EXPECT_NEAR(lat, 48.5, 1e-12);
}

TEST(Calibration, TheKeptCentreFollowsEveryChange) {
    const struct {
        const char* legend;
        void (*change)(MapCalibration&);
    } cases[] = {
        {"a point moved", [](MapCalibration& m) { m.SetPoint(1, m.GetPointPixel(1), 13.0, 49.0); }},
        {"a point deleted", [](MapCalibration& m) { m.DeletePoint(0); }},
        {"all points replaced",
         [](MapCalibration& m) {
             const Point pixels[2] = {{0, 800}, {1000, 0}};
             const double lons[2] = {1, 2}, lats[2] = {3, 4};
             m.SetPoints(2, pixels, lons, lats);
         }},
        {"another size", [](MapCalibration& m) { m.SetMapSize(Size(500, 400)); }},
        {"a blank image", [](MapCalibration& m) { m.CreateBlank(200, 100); }},
        {"placed automatically", [](MapCalibration& m) { m.AutoCalibrate(5, 6, 40, 41, 1.5); }},
        {"placed without B: none", [](MapCalibration& m) { m.AutoCalibrate(5, 0, 40, 41, 1.5); }},
    };
    for (const auto& c : cases) {
        MapCalibration map = twoPointMap();
        map.CentreForSelection();
        c.change(map);
        double lon, lat;
        map.GetCentre(lon, lat);
        EXPECT_EQ(map.CentreForSelection().dLong, lon) << c.legend;
        EXPECT_EQ(map.CentreForSelection().dLat, lat) << c.legend;
    }
}
