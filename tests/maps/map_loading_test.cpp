#include "RecordingHost.h"
#include "settings/CRegistryKey.h"
#include "support/CalibratedMap.h"
#include "support/Files.h"
#include "support/TestData.h"
#include "support/TestRoot.h"

#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

// A 300 x 200 picture with its calibration over 11..12 E, 48..49 N beside it.
QString writeCalibratedMap(const TestRoot& root, const QString& name) {
    return writeCalibratedMap(root.file(name), {300, 200}, {11, 48}, {12, 49});
}

QString developerLog(const TestRoot& root) {
    return QString::fromUtf8(readFile(root.file("dev.log")));
}

} // namespace

TEST(MapLoading, ImageNeedsTwiceItsPixelsPlusOneMegabyteFree) {
    TestRoot root;
    CRegistryKey().WriteString("Develop", "\\dev.log");
    const QString picture = writeCalibratedMap(root, "map.png");
    const QString notImage = testDataDir() + "/maps/kal/current.kal";
    const QString huge = testDataDir() + "/maps/images/huge-header.png"; // 50000 x 50000, no pixels

    const struct {
        const char* legend;
        QString path;
        Size recorded;
        int64_t freeBytes;
        bool loaded;
        int availMb, sizeMb; // the figures of the developer log's line, 0 when none is written
    } cases[] = {
        {"exactly enough", picture, {300, 200}, (300 * 200 + 524288) * 2, true, 0, 0},
        {"one byte short", picture, {300, 200}, (300 * 200 + 524288) * 2 - 1, false, 1, 1},
        {"judged on the recorded size before decoding", picture, {2000, 2000}, 2 << 20, false, 2, 8},
        {"no recorded size needs 1 MB, then the header's size", picture, {0, 0}, 1 << 20, false, 1, 1},
        {"no recorded size, enough for the header's size", picture, {0, 0}, 2 << 20, true, 0, 0},
        {"a file that is no image", notImage, {10, 10}, int64_t(1) << 32, false, 0, 0},
        {"a header of 50000 x 50000 pixels", huge, {100, 100}, int64_t(1) << 32, false, 4096, 4769},
    };
    for (const auto& c : cases) {
        QFile::remove(root.file("dev.log"));
        CRecordingHost host;
        CMapCatalogue catalogue(host);
        catalogue.SetFreeMemorySource([&] { return c.freeBytes; });
        MapCalibration map(c.path);
        map.SetMapSize(c.recorded);
        EXPECT_EQ(catalogue.LoadMapImage(map), c.loaded) << c.legend;
        EXPECT_EQ(map.HasImage(), c.loaded) << c.legend;
        if (c.loaded) {
            EXPECT_EQ(map.MapSize(), (Size{300, 200})) << c.legend;
            EXPECT_EQ(map.Image().format(), QImage::Format_RGB16) << c.legend;
        }
        const QString log = developerLog(root);
        const QString line =
            QStringLiteral(" Not enough memeory to load %1: dwAvailPhys: %2 MB, dwMapSize: %3 MB\n")
                .arg(c.path)
                .arg(c.availMb)
                .arg(c.sizeMb);
        EXPECT_EQ(log.contains(c.availMb ? line : "memeory"), c.availMb != 0)
            << c.legend << ": " << log.toStdString();
    }
}

TEST(MapLoading, LoadCurrentMapShowsTheImageOrABlankScreen) {
    TestRoot root;
    const QString picture = writeCalibratedMap(root, "map.png");
    const struct {
        const char* legend;
        bool showMap;
        QString mapFile;
        bool removeKal;
        bool result, uncalibrated; // a failure frees memory, tries again and reports on the status line
        Size size;
    } cases[] = {
        {"an image with its calibration", true, picture, false, true, false, {300, 200}},
        {"an image without calibration", true, picture, true, true, true, {300, 200}},
        {"no image shown: a blank screen", false, picture, false, true, true, {320, 240}},
        {"a missing image", true, root.file("gone.png"), false, false, false, {0, 0}},
    };
    for (const auto& c : cases) {
        if (c.removeKal) QFile::remove(root.file("map.kal"));
        CRecordingHost host;
        CMapCatalogue catalogue(host);
        catalogue.SetShowMap(c.showMap);
        catalogue.SetMapFile(c.mapFile);
        EXPECT_EQ(catalogue.LoadCurrentMap(true), c.result) << c.legend;
        ASSERT_NE(catalogue.CurrentMap(), nullptr) << c.legend;
        EXPECT_EQ(catalogue.IsUncalibrated(), c.uncalibrated) << c.legend;
        EXPECT_EQ(catalogue.CurrentMap()->MapSize(), c.size) << c.legend;
        EXPECT_EQ(host.m_strStatus, c.result ? QString() : "Error while loading " + c.mapFile) << c.legend;
        EXPECT_EQ(host.m_nFreeMemoryCalls, c.result ? 0 : 1) << c.legend;
        EXPECT_EQ(host.m_pDisplayed, c.result ? catalogue.CurrentMap() : nullptr) << c.legend;
        if (c.showMap) {
            EXPECT_EQ(host.m_strTitle, QFileInfo(c.mapFile).fileName()) << c.legend;
        }
    }
}

TEST(MapLoading, OpenMapRebuildsTheCacheAndRemembersTheMap) {
    TestRoot root;
    const QString first = writeCalibratedMap(root, "first.png");
    const QString second = writeCalibratedMap(root, "second.png");
    writeFile(
        root.file("cache.ini"),
        "[Map_0]\nBitmap = first.png\nSize = SIZE(300,200)\nPixel_0 = POINT(0,200)\nLong_0 = 11\nLat_0 = 48\n"
        "Pixel_1 = POINT(300,0)\nLong_1 = 12\nLat_1 = 49\n");

    CRecordingHost host;
    CMapCatalogue catalogue(host);
    catalogue.OpenMap(second);
    EXPECT_EQ(catalogue.Maps().size(), 2u) << "the stale cache was deleted and rebuilt";
    ASSERT_NE(catalogue.CurrentMap(), nullptr);
    EXPECT_EQ(catalogue.CurrentMap()->MapFile(), second);
    EXPECT_TRUE(catalogue.CurrentMap()->HasImage());
    EXPECT_FALSE(catalogue.IsUncalibrated());
    EXPECT_EQ(CRegistryKey().GetDword("ShowMap", 0), 1u);
    EXPECT_EQ(catalogue.MapInfoText(), "second.png: 300*200 247\n");

    CMapCatalogue restarted(host);
    restarted.ReadSettings();
    EXPECT_TRUE(restarted.ShowMap());
    EXPECT_EQ(restarted.MapFile(), second);
    EXPECT_TRUE(restarted.AutoLoadNext());
}

// A view that decodes on a worker: the first request finds the image still decoding, the repeated
// LoadCurrentMap finds it decoded.
TEST(MapLoading, ImageDecodingElsewhereKeepsTheStatusUntilItIsThere) {
    TestRoot root;
    const QString picture = writeCalibratedMap(root, "map.png");
    struct WorkerHost : CRecordingHost {
        bool m_bDone = false;
        std::optional<QImage> DecodeImage(const QString& path) override {
            if (m_bDone) return MyLoadBitmap(path);
            return std::nullopt;
        }
    } host;
    CMapCatalogue catalogue(host);
    catalogue.SetShowMap(true);
    catalogue.SetMapFile(picture);
    EXPECT_FALSE(catalogue.LoadCurrentMap(true));
    EXPECT_EQ(host.m_strStatus, "Load " + picture);
    EXPECT_EQ(host.m_nFreeMemoryCalls, 0) << "decoding is no failure";
    EXPECT_EQ(host.m_pDisplayed, nullptr);
    host.m_bDone = true;
    EXPECT_TRUE(catalogue.LoadCurrentMap(true));
    EXPECT_EQ(host.m_strStatus, "");
    EXPECT_EQ(host.m_pDisplayed, catalogue.CurrentMap());
    EXPECT_FALSE(catalogue.IsUncalibrated());
}
