#include "RecordingHost.h"
#include "support/Files.h"
#include "support/Golden.h"
#include "support/TestData.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

// A catalogue scanned in `folder` (its cache.ini, or else its .kal files) with `current` the current map.
struct ScannedCatalogue {
    CRecordingHost host;
    CMapCatalogue catalogue{host};
    ScannedCatalogue(const QString& folder, const QString& current) {
        catalogue.SetShowMap(true);
        catalogue.SetMapFile(folder + '/' + current);
        catalogue.ScanMaps();
    }
};

// A cache section for a map of 1000 x 1000 pixels over lon0..lon1, lat0..lat1.
QByteArray cacheSection(int index, const char* bitmap, double lon0, double lon1, double lat0, double lat1) {
    return QStringLiteral("[Map_%1]\nBitmap = %2\nSize = SIZE(1000,1000)\nPixel_0 = POINT(0,1000)\n"
                          "Long_0 = %3\nLat_0 = %4\nPixel_1 = POINT(1000,0)\nLong_1 = %5\nLat_1 = %6\n")
        .arg(index)
        .arg(bitmap)
        .arg(lon0)
        .arg(lat0)
        .arg(lon1)
        .arg(lat1)
        .toUtf8();
}

// The cache of tests/data/maps/catalogue: "wide" over 11..12 E, 48..49 N (about 74 m a pixel), "detail"
// over 11.4..11.6, 48.4..48.6 (about 15 m a pixel) and "away" over 20..21 E, 50..51 N.
void copyThreeMaps(const TestRoot& root) {
    ASSERT_TRUE(QFile::copy(testDataDir() + "/maps/catalogue/cache.ini", root.file("cache.ini")));
}

QStringList namesOf(const CMapCatalogue& catalogue) {
    QStringList names;
    for (const auto& map : catalogue.Maps())
        names << QFileInfo(map->MapFile()).fileName();
    return names;
}

} // namespace

// The cache written for tests/data/maps/kal. The folder lists its files in no fixed order, so the
// sections are compared without their numbers and sorted. A scan reading that cache without looking at the
// folder is in the tool transcript (tests/data/maps).
TEST(Catalogue, ScanOfKalFilesWritesTheCache) {
    TestRoot root;
    const QDir inputs(testDataDir() + "/maps/kal");
    for (const QString& name : inputs.entryList(QDir::Files))
        ASSERT_TRUE(QFile::copy(inputs.filePath(name), root.file(name)));
    ScannedCatalogue scanned(root.path(), "gaps.png");
    CMapCatalogue& catalogue = scanned.catalogue;
    ASSERT_EQ(catalogue.Maps().size(), 3u);
    ASSERT_NE(catalogue.CurrentMap(), nullptr);
    EXPECT_EQ(catalogue.CurrentMap()->MapFile(), root.file("gaps.png"));

    QStringList sections = QString::fromUtf8(readFile(root.file("cache.ini")))
                               .split(QRegularExpression("\\[Map_\\d+\\]\n"), Qt::SkipEmptyParts);
    sections.sort();
    expectMatchesGolden(testDataDir() + "/maps/kal-cache.ini.out",
                        sections.join("[Map_?]\n").prepend("[Map_?]\n").toUtf8());
}

// Skipping a section of one point is in the tool transcript (tests/data/maps).
TEST(Catalogue, CacheSectionsEndAtTheFirstGap) {
    TestRoot root;
    writeFile(
        root.file("cache.ini"),
        cacheSection(0, "first.jpg", 11, 12, 48, 49) +
            "[Map_1]\nBitmap = gap.jpg\nSize = SIZE(1000,1000)\nPixel_0 = POINT(0,1000)\nLong_0 = 5\n"
            "Lat_0 = 40\nPixel_1 = POINT(1000,0)\nLong_1 = 6\nLat_1 = 41\nPixel_3 = POINT(0,0)\nLong_3 = 5\n"
            "Lat_3 = 41\n[Map_2]\nBitmap = no-size.jpg\n" +
            cacheSection(3, "never.jpg", 1, 2, 3, 4));
    ScannedCatalogue scanned(root.path(), "gap.JPG");
    CMapCatalogue& catalogue = scanned.catalogue;
    EXPECT_EQ(namesOf(catalogue), QStringList({"first.jpg", "gap.jpg"}));
    EXPECT_EQ(catalogue.Maps()[1]->PointCount(), 2) << "point 3 after the gap is not read";
    EXPECT_EQ(catalogue.CurrentMap(), catalogue.Maps()[1].get()) << "extensions do not matter, names do";
    EXPECT_DOUBLE_EQ(catalogue.UnionMinLong(), 5.0);
    EXPECT_DOUBLE_EQ(catalogue.UnionMaxLong(), 12.0);
    EXPECT_DOUBLE_EQ(catalogue.UnionMinLat(), 40.0);
    EXPECT_DOUBLE_EQ(catalogue.UnionMaxLat(), 49.0);

    // The overview: 60 x 60 pixels over a square a little larger than the union box, around its centre
    // (its corners are great-circle destinations, so the centre is only roughly in the middle).
    const CMatrix& g = catalogue.OverviewMatrix();
    const auto toPixel = [&](double lon, double lat) {
        return std::pair{(g(0, 0) * lon + g(0, 1) * lat + g(0, 2)),
                         (g(1, 0) * lon + g(1, 1) * lat + g(1, 2))};
    };
    const auto [cx, cy] = toPixel(8.5, 44.5);
    EXPECT_NEAR(cx, 30, 3);
    EXPECT_NEAR(cy, 30, 3);
    for (const auto& [lon, lat] : {std::pair{5.0, 40.0}, {12.0, 49.0}, {5.0, 49.0}, {12.0, 40.0}}) {
        const auto [x, y] = toPixel(lon, lat);
        EXPECT_TRUE(x > 0 && x < 60 && y > 0 && y < 60) << lon << " " << lat << " at " << x << "," << y;
    }

    catalogue.SetShowMap(false);
    catalogue.ScanMaps();
    EXPECT_TRUE(catalogue.Maps().empty()) << "nothing is scanned while no image is shown";
}

// The nearer scale among containing maps, the containing map in front, the map remembered as LoadedMap
// and the automatic change switched off are in the tool transcript (tests/data/maps).
TEST(Catalogue, SelectBestMapPrefersContainingThenScore) {
    const struct {
        const char* legend;
        double lon, lat, mpp;
        QStringList order; // the catalogue afterwards, best first
    } cases[] = {
        {"two contain it: 100 km of score per m/px", 11.5, 48.5, 70, {"wide.jpg", "away.jpg", "detail.jpg"}},
        {"none contains it: the lowest score", 15.0, 49.5, 15, {"detail.jpg", "away.jpg", "wide.jpg"}},
    };
    for (const auto& c : cases) {
        TestRoot root;
        copyThreeMaps(root);
        ScannedCatalogue scanned(root.path(), "away.jpg");
        CMapCatalogue& catalogue = scanned.catalogue;
        CRecordingHost& host = scanned.host;
        host.m_spot = MapViewSpot{c.lon, c.lat, c.mpp};
        catalogue.SelectBestMap();
        EXPECT_EQ(namesOf(catalogue), c.order) << c.legend;
        EXPECT_EQ(catalogue.CurrentMap(), catalogue.Maps().front().get()) << c.legend;
        EXPECT_EQ(host.m_strTitle, c.order.front()) << c.legend;
    }
}

TEST(Catalogue, SelectBestMapRescalesZoom) {
    TestRoot root;
    copyThreeMaps(root);
    ScannedCatalogue scanned(root.path(), "wide.jpg");
    CMapCatalogue& catalogue = scanned.catalogue;
    CRecordingHost& host = scanned.host;
    catalogue.SetZoom(2.0f);
    host.m_spot = MapViewSpot{11.5, 48.5, 15.0};

    catalogue.SelectBestMap();
    const MapCalibration* detail = catalogue.CurrentMap();
    ASSERT_EQ(QFileInfo(detail->MapFile()).fileName(), "detail.jpg");
    EXPECT_NEAR(catalogue.Zoom(), 2.0 * 0.2, 0.01) << "a fifth of the ground per pixel";

    // Without a client rectangle the current map's own scale is wanted.
    host.m_spot = MapViewSpot{11.5, 48.5, std::nullopt};
    catalogue.SelectBestMap();
    EXPECT_EQ(catalogue.CurrentMap(), detail);
    EXPECT_NEAR(detail->Score(), 0.0, 0.01);
}

TEST(Catalogue, TitleAndMapInfo) {
    const struct {
        const char* mapFile;
        const char* title;
    } cases[] = {{"", "Tarvik Map"},
                 {"/maps/", "Tarvik Map"},
                 {"/maps/b/c.jpg", "c.jpg"},
                 {"\\My Documents\\x.png", "x.png"}};
    for (const auto& c : cases)
        EXPECT_EQ(CMapCatalogue::TitleFor(c.mapFile), c.title) << c.mapFile;
}
