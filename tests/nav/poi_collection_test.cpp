#include "nav/poi/PoiCollection.h"
#include "nav/poi/PoiLoader.h"
#include "nav/poi/PoiSettings.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

// `count` points a line, east of 0.1 deg so that all are listed.
QByteArray ascPoints(int count) {
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += QByteArray::number(8 + i) + ",48,\"P" + QByteArray::number(i) + "\"\n";
    return text;
}

void enable(const QString& file, bool on) {
    CRegistryKey(PoiSettings::kFilesKey).WriteFlag(file, on);
}

int loadAll(PoiCollection& pois, std::vector<int>* progress = nullptr) {
    return pois.LoadAllPois(
        std::stop_token(),
        [progress](int total) {
            if (progress) progress->push_back(total);
        },
        0);
}

} // namespace

TEST(PoiCollection, LoadsTheEnabledFilesOfTheSubkey) {
    TestRoot root;
    writeFile(root.file("POI/a.asc"), ascPoints(3));
    writeFile(root.file("POI/b.asc"), ascPoints(2));
    writeFile(root.file("POI/c.asc"), ascPoints(5));
    enable("a.asc", true);
    enable("b.asc", false);
    enable("c.asc", true);
    enable("gone.asc", true); // in the list, not in the folder: 0 points, no message
    PoiCollection pois;
    std::vector<int> progress;
    EXPECT_EQ(loadAll(pois, &progress), 8);
    EXPECT_EQ(progress, (std::vector<int>{3, 8, 8}));
    ASSERT_EQ(pois.enabledFiles().size(), 3u);
    const PoiFile* first = pois.enabledFiles()[0];
    EXPECT_EQ(first->m_strName, "a.asc");

    // Switched off, a file gives its points back; the objects stay where they were.
    enable("a.asc", false);
    enable("b.asc", true);
    EXPECT_EQ(loadAll(pois), 7);
    EXPECT_FALSE(first->m_bEnabled);
    EXPECT_TRUE(first->m_entries.empty());
    EXPECT_EQ(pois.files()[0].get(), first);

    // "PoiPath" names another folder.
    CRegistryKey().WriteString("PoiPath", "/Meine POIs");
    writeFile(root.file("Meine POIs/b.asc"), ascPoints(4));
    EXPECT_EQ(loadAll(pois), 4);
}

TEST(PoiCollection, IconsOfTheSameBaseName) {
    TestRoot root;
    QDir().mkpath(root.file("POI"));
    const struct {
        const char* file;
        const char* icon; // nullptr: none
        int poiSize;
        QSize expected;
    } cases[] = {
        {"Blitzer.ov2", "Blitzer.bmp", 0, {20, 10}},
        {"Tank_Stellen.asc", "Tank Stellen.bmp", 0, {20, 10}}, // '_' read as blank
        {"Hotel.ov2", "Hotel.bmp", 16, {16, 16}},              // stretched square
        {"Kirche.ov2", "Kirche.bmp", 10, {20, 10}},            // already that high
        {"Ohne.ov2", nullptr, 16, {0, 0}},
    };
    for (const auto& c : cases) {
        if (c.icon) {
            QImage image(20, 10, QImage::Format_RGB32);
            image.fill(Qt::red);
            ASSERT_TRUE(image.save(root.file(QStringLiteral("POI/") + c.icon), "BMP"));
        }
        const PoiFile file{c.file, root.file("POI"), {}, true, {}};
        EXPECT_EQ(LoadPoiIcon(file, uint8_t(c.poiSize)).size(), c.expected) << c.file;
    }
}

TEST(PoiCollection, StopEndsTheWaitAndTheLoad) {
    TestRoot root;
    writeFile(root.file("POI/a.asc"), ascPoints(3));
    enable("a.asc", true);
    PoiCollection pois;
    std::stop_source stop;
    stop.request_stop();
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(pois.LoadAllPois(stop.get_token(), {}, 60000), 0);
    EXPECT_LT(timer.elapsed(), 5000) << "the wait ends at once";

    PoiLoader loader;
    loader.start(60000);
    EXPECT_TRUE(loader.isLoading());
    timer.restart();
    loader.stop();
    EXPECT_FALSE(loader.isLoading());
    EXPECT_LT(timer.elapsed(), 5000);

    // Started again, it loads; the signals arrive on this thread.
    int argc = 0;
    QCoreApplication app(argc, nullptr);
    QSignalSpy progress(&loader, &PoiLoader::progress), loaded(&loader, &PoiLoader::loaded);
    loader.start(0);
    ASSERT_TRUE(loaded.wait(10000));
    EXPECT_EQ(progress.size(), 1);
    EXPECT_EQ(loaded.at(0).at(0).toInt(), 3);
    EXPECT_FALSE(loader.isLoading());
    EXPECT_EQ(loader.total(), 3);
    EXPECT_EQ(loader.pois().enabledFiles().at(0)->m_entries.size(), 3u);
}
