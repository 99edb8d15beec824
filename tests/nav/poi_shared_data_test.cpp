#include "GpsbabelOracle.h"
#include "nav/poi/PoiFile.h"
#include "nav/poi/PoiName.h"
#include "support/Files.h"
#include "support/TestData.h"

#include <QFile>
#include <QStandardPaths>
#include <gtest/gtest.h>

// The real POI files in ../shared/data, written by other programs; skipped when that folder is absent.

TEST(PoiSharedData, ReadsThePointsGpsbabelReads) {
    const auto shared = sharedDataDir();
    if (!shared) GTEST_SKIP() << "../shared/data is absent";
    if (QStandardPaths::findExecutable("gpsbabel").isEmpty()) GTEST_SKIP() << "gpsbabel is not installed";
    const struct {
        const char *file, *format;
        bool names; // the .asc names keep their quotes here, and the first one points into the header
    } cases[] = {
        {"ov2/gpsbabel-tomtom.ov2", "tomtom", true},
        {"ov2/jov2-chateaux.ov2", "tomtom", true},
        {"ov2/ottawa-Speed_Cameras.ov2", "tomtom", true},
        {"ov2/furkot-simple.ov2", "tomtom", true},
        {"ov2/furkot-multi.ov2", "tomtom", true},
        {"ov2/pinpoi-test.ov2", "tomtom", true},
        {"ov2/gpsbabel-ov2-arc-out.ov2", "tomtom", true},
        {"ov2/gpsbabel-ov2-geo-out.ov2", "tomtom", true},
        {"asc/gpsbabel-tomtom_poi.asc", "tomtom_asc", false},
    };
    for (const auto& c : cases) {
        const QString path = *shared + '/' + c.file;
        const QByteArray bytes = readFile(path);
        const std::vector<PoiEntry> ours = ReadPoiEntries(bytes, path, PoiReading::Complete);
        const NamedPois theirs = gpsbabelPoints(c.format, path);
        ASSERT_EQ(ours.size(), theirs.size()) << c.file;
        ASSERT_FALSE(ours.empty()) << c.file;
        for (size_t i = 0; i < ours.size(); ++i) {
            EXPECT_NEAR(ours[i].m_dLon, theirs[i].m_dLon, 5e-7) << c.file << " #" << i;
            EXPECT_NEAR(ours[i].m_dLat, theirs[i].m_dLat, 5e-7) << c.file << " #" << i;
            if (c.names) {
                EXPECT_EQ(PoiNameText(PoiNameAt(bytes, ours[i].m_nNameOffset)), theirs[i].m_strName)
                    << c.file << " #" << i;
            }
        }
    }
}

TEST(PoiSharedData, ListsThePointsTheProgramKeeps) {
    const auto shared = sharedDataDir();
    if (!shared) GTEST_SKIP() << "../shared/data is absent";
    const struct {
        const char* file;
        size_t inFile, listed;
        double firstLon, firstLat; // the westernmost point listed
        const char* firstName;
    } cases[] = {
        {"ov2/jov2-chateaux.ov2", 2125, 2124, -4.49216, 48.38243, "[Chtx] 29 Brest - XIème"},
        {"ov2/ottawa-Speed_Cameras.ov2", 60, 60, -75.94004, 45.33954, "Camera E059"},
        {"ov2/pinpoi-test.ov2", 2, 2, -122.08745, 37.42207, "This is the location of my office."},
        // Four header lines without ';' are skipped (the westernmost point's name is past the first).
        {"asc/gpsbabel-tomtom_poi.asc", 90 - 4, 86, -71.126602, 42.451204, "\"GATE14\""},
        // Only the comma line is a point; the lines before it were skipped, so its name is "line".
        {"asc/pinpoi-asc.asc", 1, 1, 12.56789, 41.56721, "line"},
    };
    for (const auto& c : cases) {
        const QString path = *shared + '/' + c.file;
        PoiFile file{c.file, *shared, {}, true, {}};
        EXPECT_EQ(ReadPoiEntries(readFile(path), path, PoiReading::Complete).size(), c.inFile) << c.file;
        ASSERT_EQ(LoadPoiFile(file), int(c.listed)) << c.file;
        EXPECT_TRUE(std::ranges::is_sorted(file.m_entries, {}, &PoiEntry::m_dLon)) << c.file;
        EXPECT_NEAR(file.m_entries[0].m_dLon, c.firstLon, 1e-9) << c.file;
        EXPECT_NEAR(file.m_entries[0].m_dLat, c.firstLat, 1e-9) << c.file;
        EXPECT_EQ(PoiNameText(ReadPoiName(file, file.m_entries[0])), QString::fromUtf8(c.firstName))
            << c.file;
    }
    // The first point follows four skipped header lines: its name offset, 21, points into the first one.
    const QByteArray asc = readFile(*shared + "/asc/gpsbabel-tomtom_poi.asc");
    EXPECT_EQ(PoiNameAt(asc, ReadPoiEntries(asc, "x.asc", PoiReading::AsListed).at(0).m_nNameOffset),
              "ces of Interest");
}
