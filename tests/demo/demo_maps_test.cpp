#include "demo/DemoRoute.h"
#include "maps/MapCalibration.h"
#include "support/Files.h"
#include "support/ToolRunner.h"

#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// The maps the tool draws are the ones the demo ships, the drive runs over their main road, and it
// leaves the town map on the way, so that the view changes to the overview by itself.
TEST(DemoMaps, TheDriveRunsAlongTheMapsRoad) {
    QTemporaryDir folder;
    const ToolResult result = runTool({"--root", folder.filePath("root"), "demo", "maps", folder.path()});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const RoutePath path(demoRoute());
    const struct {
        const char* name;
        int points;
        double upDeg;       // the direction of the image's top, degrees clockwise from north
        double insideUpToM; // the drive stays on the map up to here (metres from the start)
    } maps[] = {
        {"Leutkirch", 3, 4.0, 4350},
        {"Allgaeu", 4, 0.0, path.lengthM()},
    };
    for (const auto& m : maps) {
        SCOPED_TRACE(m.name);
        const QString kal = folder.filePath(QString(m.name) + ".kal");
        EXPECT_EQ(readFile(kal),
                  readFile(QString(TARVIK_SOURCE_DIR) + "/data/demo/Karten/" + m.name + ".kal"))
            << "the shipped calibration";
        MapCalibration map;
        ASSERT_TRUE(map.LoadCalibration(kal));
        EXPECT_EQ(map.PointCount(), m.points);
        const QImage image(map.MapFile());
        ASSERT_FALSE(image.isNull());
        double lon0, lat0, lon1, lat1;
        map.PixelToGeo(700, 800, lon0, lat0);
        map.PixelToGeo(700, 700, lon1, lat1);
        const double up = std::atan2((lon1 - lon0) * std::cos(lat0 * M_PI / 180), lat1 - lat0) * 180 / M_PI;
        EXPECT_NEAR(up, m.upDeg, 0.05) << "the scan's turn";
        int onRoad = 0, samples = 0;
        for (double s = 100; s < path.lengthM(); s += 500) {
            const GeoPosition at = path.positionAt(s);
            EXPECT_EQ(map.Contains(at.m_dPosLong, at.m_dPosLat), s <= m.insideUpToM) << s << " m";
            if (!map.Contains(at.m_dPosLong, at.m_dPosLat) || path.legAt(s).m_bTunnel) continue;
            const Point pixel = map.GeoToPixel(at.m_dPosLong, at.m_dPosLat);
            const QColor colour = image.pixelColor(pixel.x, pixel.y);
            ++samples;
            onRoad += colour.red() > 200 && colour.green() > 160 && colour.blue() < 150; // the road's yellow
        }
        EXPECT_GE(onRoad, samples * 9 / 10) << "of " << samples << ": names cover the road here and there";
    }
}
