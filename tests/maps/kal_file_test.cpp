#include "maps/MapCalibration.h"
#include "maps/MapPaths.h"
#include "support/Golden.h"
#include "support/TestData.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)\n");
}

} // namespace

// Each tests/data/maps/kal/NAME.kal is loaded as the map view loads the calibration of NAME.jpg, a
// picture of 1000 x 800 pixels; NAME.kal.out holds the outcome, the file as it is after the load (the
// older layout is rewritten) and what a save then writes.
TEST(KalFile, LoadAndSaveMatchGoldenFiles) {
    const QDir inputs(testDataDir() + "/maps/kal");
    const QStringList names = inputs.entryList({"*.kal"}, QDir::Files, QDir::Name);
    ASSERT_GE(names.size(), 8);
    for (const QString& name : names) {
        QTemporaryDir dir;
        const QString kal = dir.filePath(name);
        ASSERT_TRUE(QFile::copy(inputs.filePath(name), kal));
        MapCalibration map(dir.filePath(name.chopped(3) + "jpg"));
        map.SetMapSize(Size{1000, 800});
        const bool loaded = map.LoadCalibration();
        QByteArray outcome = "load: " + QByteArray(loaded ? "true" : "false") +
                             "\ncount: " + QByteArray::number(map.PointCount()) + "\n";
        for (int i = 0; i < map.PointCount(); ++i) {
            double lon, lat;
            map.GetPointGeo(i, lon, lat);
            outcome += QStringLiteral("point %1: %2,%3 %4 %5\n")
                           .arg(i)
                           .arg(map.GetPointPixel(i).x)
                           .arg(map.GetPointPixel(i).y)
                           .arg(lon, 0, 'g', 17)
                           .arg(lat, 0, 'g', 17)
                           .toUtf8();
        }
        const QByteArray after = readAll(kal);
        outcome += "file after load:\n" + (after == readAll(inputs.filePath(name)) ? "(unchanged)\n" : after);
        if (loaded) {
            EXPECT_TRUE(map.SaveCalibration(dir.filePath("saved.kal"))) << name.toStdString();
            outcome += "saved:\n" + readAll(dir.filePath("saved.kal"));
        }
        expectMatchesGolden(inputs.filePath(name + ".out"), outcome);
    }
}

TEST(KalFile, PathComesFromTheLastThreeCharactersOfTheMapFile) {
    const struct {
        const char* legend;
        const char* mapFile;
        const char* kalFile; // empty: no calibration file, load and save fail
    } cases[] = {
        {"three-letter extension", "/maps/map.jpg", "/maps/map.kal"},
        {"four-letter extension keeps its first letter", "/maps/map.jpeg", "/maps/map.jkal"},
        {"five characters are enough", "a.bmp", "a.kal"},
        {"four characters fail", "a.bm", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(MapPaths::CalibrationPathFor(c.mapFile), c.kalFile) << c.legend;
    }
    MapCalibration tooShort("a.bm");
    tooShort.SetMapSize(Size{100, 100});
    tooShort.SetPoint(0, Point{0, 100}, 1.0, 2.0);
    EXPECT_FALSE(tooShort.SaveCalibration());
    EXPECT_FALSE(tooShort.LoadCalibration());
}

TEST(KalFile, TheImageNameComesFromTheKalFolderWhenNoneIsKnown) {
    QTemporaryDir dir;
    ASSERT_TRUE(QFile::copy(testDataDir() + "/maps/kal/current.kal", dir.filePath("x.kal")));
    MapCalibration known(dir.filePath("other.png"));
    ASSERT_TRUE(known.LoadCalibration(dir.filePath("x.kal")));
    EXPECT_EQ(known.MapFile(), dir.filePath("other.png"));
    MapCalibration unknown;
    ASSERT_TRUE(unknown.LoadCalibration(dir.filePath("x.kal")));
    EXPECT_EQ(unknown.MapFile(), dir.filePath("current.jpg"));
    EXPECT_EQ(unknown.MapSize(), (Size{1000, 800}));
}
