#include "nav/track/TkFile.h"
#include "nav/track/TrackFiles.h"
#include "support/Files.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// The trailing comma, two-field and binary lines, GPX routes and the round trips through GPX are in
// tests/data/goto/commands.txt.
TEST(TkFile, ReadsLatitudeFirst) {
    struct Case {
        const char* legend;
        QByteArray bytes;
        TrackVertices expected;
    } cases[] = {
        {"CRLF and a last line without end", "1,2,\r\n3,4,x", {{2, 1}, {4, 3}}},
        {"empty", "", {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ReadTk(c.bytes), c.expected) << c.legend;
}

TEST(TkFile, RoundTripsSevenDecimals) {
    const TrackVertices track = {{11.5, 48.1234567}, {-0.00000004, -89.99999996}, {179.12345674, 1e-9}};
    const QByteArray bytes = WriteTk(track);
    EXPECT_TRUE(bytes.startsWith("48.1234567,11.5000000,\n")) << bytes.constData();
    const TrackVertices back = ReadTk(bytes);
    ASSERT_EQ(back.size(), track.size());
    for (size_t i = 0; i < track.size(); ++i) {
        EXPECT_NEAR(back[i].m_dLon, track[i].m_dLon, 0.5e-7) << i;
        EXPECT_NEAR(back[i].m_dLat, track[i].m_dLat, 0.5e-7) << i;
    }
}

TEST(TkFile, RunningKmStartsAtZero) {
    EXPECT_TRUE(RunningKm({}).empty());
    EXPECT_EQ(RunningKm({{11, 48}}), std::vector<double>{0.0});
    // One degree of latitude is 111.12 km on the program's sphere.
    const auto km = RunningKm({{11, 48}, {11, 49}, {11, 48}});
    ASSERT_EQ(km.size(), 3u);
    EXPECT_NEAR(km[1], 111.12, 1e-9);
    EXPECT_NEAR(km[2], 222.24, 1e-9);
}

TEST(TrackFiles, GpxTracksComeBeforeRoutesAndFailuresLeaveNoTrack) {
    QTemporaryDir dir;
    const QString gpx =
        writeFile(dir.filePath("in.GPX"), "<gpx><rte><rtept lat=\"3\" lon=\"4\"/></rte><trk><trkseg>"
                                          "<trkpt lat=\"1\" lon=\"2\"/></trkseg></trk></gpx>");
    const auto noLog = [](QIODevice&, TrackVertices&) { return false; };
    TrackVertices track;
    QString error;
    ASSERT_TRUE(LoadTrackFile(gpx, noLog, track, error)) << error.toStdString();
    EXPECT_EQ(track, (TrackVertices{{2, 1}, {4, 3}}));
    EXPECT_FALSE(SaveTrackFile(dir.filePath("missing/out.tk"), track));
    EXPECT_FALSE(LoadTrackFile(dir.filePath("LOG.TXT"), noLog, track, error));
    EXPECT_TRUE(track.empty());
}
