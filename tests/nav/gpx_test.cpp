#include "GpsbabelOracle.h"
#include "nav/gpx/GpxReader.h"
#include "nav/gpx/GpxWriter.h"
#include "support/Files.h"
#include "support/TestData.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QDateTime utc(const char* text) {
    return QDateTime::fromString(text, Qt::ISODateWithMs).toUTC();
}

GpxPoint point(double lat, double lon, std::optional<double> ele = {}, const char* time = nullptr) {
    GpxPoint p{.m_dLat = lat, .m_dLon = lon, .m_dEle = ele};
    if (time) p.m_time = utc(time);
    return p;
}

GpxDocument sampleTrack() {
    GpxPoint full = point(48.1234567, 11.5, 512.5, "2024-05-01T10:00:00Z");
    full.m_strFix = "3d";
    full.m_nSat = 7;
    full.m_dHdop = 1.2;
    full.m_dSpeed = 36.0;
    full.m_dCourse = 90.5;
    GpxDocument document;
    document.m_tracks.push_back(
        {"Fahrt über Land",
         {{full, point(-33.9, -70.25, -12, "2024-05-01T10:00:01.5Z")}, {point(0.5, 179.999999999)}}});
    document.m_waypoints.push_back({.m_dLat = 47.5, .m_dLon = 10.75, .m_strName = "Gipfel Öd & <Spitze>"});
    document.m_routes.push_back({"Runde", {point(47.1, 10.1), point(47.2, 10.2)}});
    return document;
}

GpxPoints allTrackPoints(const GpxDocument& document) {
    GpxPoints points;
    for (const GpxTrack& t : document.m_tracks)
        for (const GpxPoints& s : t.m_segments)
            points.insert(points.end(), s.begin(), s.end());
    return points;
}

} // namespace

TEST(Gpx, GpsbabelReadsWhatIsWritten) {
    QTemporaryDir dir;
    const GpxDocument document = sampleTrack();
    const QString path = writeFile(dir.filePath("out.gpx"), WriteGpx(document));
    const GpxPoints points = allTrackPoints(document);
    const auto rows = gpsbabelRows({"-t", "-i", "gpx"}, path);
    ASSERT_EQ(rows.size(), points.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        EXPECT_NEAR(rows[i]["Latitude"].toDouble(), points[i].m_dLat, 1e-6) << i;
        EXPECT_NEAR(rows[i]["Longitude"].toDouble(), points[i].m_dLon, 1e-6) << i;
        EXPECT_EQ(rows[i]["Altitude"].toDouble(), points[i].m_dEle.value_or(0)) << i;
    }
    // Values as GPSBabel prints them (unicsv, UTC).
    EXPECT_EQ(rows[0]["Time"], "10:00:00");
    EXPECT_EQ(rows[1]["Time"], "10:00:01.500");
    EXPECT_EQ(rows[0]["Date"], "2024/05/01");
    EXPECT_EQ(rows[0]["FIX"], "3d");
    EXPECT_EQ(rows[0]["Satellites"], "7");
    EXPECT_EQ(rows[0]["HDOP"], "1.20");
    const auto waypoints = gpsbabelRows({"-w", "-i", "gpx"}, path);
    ASSERT_EQ(waypoints.size(), 1u);
    EXPECT_EQ(waypoints[0]["Name"], "Gipfel Öd & <Spitze>");
    EXPECT_EQ(gpsbabelRows({"-r", "-i", "gpx"}, path).size(), 2u);

    // GPSBabel passes Garmin's extension through unread; its unit is metres per second.
    EXPECT_TRUE(readFile(path).contains("<gpxtpx:speed>10</gpxtpx:speed>"));
}

TEST(Gpx, WriteReadRoundTrip) {
    const GpxDocument document = sampleTrack();
    QString error;
    const auto back = ReadGpx(WriteGpx(document), error);
    ASSERT_TRUE(back) << error.toStdString();
    EXPECT_EQ(back->m_waypoints, document.m_waypoints);
    ASSERT_EQ(back->m_routes.size(), 1u);
    EXPECT_EQ(back->m_routes[0].m_strName, "Runde");
    EXPECT_EQ(back->m_routes[0].m_points, document.m_routes[0].m_points);
    ASSERT_EQ(back->m_tracks.size(), 1u);
    EXPECT_EQ(back->m_tracks[0].m_strName, "Fahrt über Land");
    ASSERT_EQ(allTrackPoints(*back).size(), 3u);
    const GpxPoint& first = back->m_tracks[0].m_segments[0][0];
    EXPECT_NEAR(*first.m_dSpeed, 36.0, 1e-12);
    EXPECT_EQ(first.m_time, utc("2024-05-01T10:00:00Z"));
    EXPECT_EQ(back->m_tracks[0].m_segments[0][1].m_time, utc("2024-05-01T10:00:01.500Z"));
}

TEST(Gpx, GpsbabelFilesImport) {
    const auto shared = sharedDataDir();
    if (!shared) GTEST_SKIP() << "no shared data";
    QTemporaryDir dir;
    for (const char* log : {"nmea/gpsbabel/track-nmea.nmea", "nmea/gpsd/haicom-305N.log"}) {
        const QString gpx = dir.filePath("babel.gpx");
        QProcess::execute("gpsbabel", {"-t", "-i", "nmea", "-f", QDir(*shared).filePath(log), "-o",
                                       "gpx,gpxver=1.1", "-F", gpx});
        const auto rows = gpsbabelRows({"-t", "-i", "gpx"}, gpx);
        QString error;
        const auto document = ReadGpx(readFile(gpx), error);
        ASSERT_TRUE(document) << log << ": " << error.toStdString();
        const GpxPoints points = allTrackPoints(*document);
        ASSERT_EQ(points.size(), rows.size()) << log;
        ASSERT_GT(points.size(), 10u) << log;
        for (size_t i = 0; i < points.size(); ++i) {
            EXPECT_NEAR(points[i].m_dLat, rows[i]["Latitude"].toDouble(), 0.5e-6) << log << i;
            EXPECT_NEAR(points[i].m_dLon, rows[i]["Longitude"].toDouble(), 0.5e-6) << log << i;
            EXPECT_EQ(points[i].m_time->toString("yyyy/MM/dd hh:mm:ss"),
                      rows[i]["Date"] + " " + rows[i]["Time"].left(8))
                << log << i;
        }
    }
}

TEST(Gpx, BrokenFilesAreRefusedOrPassedOver) {
    struct Case {
        const char* legend;
        QByteArray bytes;
        const char* error; // nullptr: read, with `points` track points
        size_t points = 0;
    } cases[] = {
        {"no lat", "<gpx><trk><trkseg>\n<trkpt lon=\"2\"/></trkseg></trk></gpx>", "line 2: a track point"},
        {"latitude beyond the pole", "<gpx><rte><rtept lat=\"91\" lon=\"2\"/></rte></gpx>", "a route point"},
        {"unclosed", "<gpx><trk><trkseg><trkpt lat=\"1\" lon=\"2\">", "line 1"},
        {"binary", QByteArray("\x00\xff\xfe<gpx>", 8), "line 1"},
        {"not gpx", "<kml/>", "not a GPX file"},
        {"bad values passed over",
         "<gpx><trk><trkseg><trkpt lat=\"1\" lon=\"2\"><ele>x</ele><time>gestern</time><sat>-3</sat>"
         "<foo><bar/></foo></trkpt><trkpt lat=\"1\" lon=\"3\"/></trkseg></trk></gpx>",
         nullptr, 2},
    };
    for (const Case& c : cases) {
        QString error;
        const auto document = ReadGpx(c.bytes, error);
        if (c.error) {
            EXPECT_FALSE(document) << c.legend;
            EXPECT_TRUE(error.contains(c.error)) << c.legend << ": " << error.toStdString();
            continue;
        }
        ASSERT_TRUE(document) << c.legend << ": " << error.toStdString();
        const GpxPoints points = allTrackPoints(*document);
        ASSERT_EQ(points.size(), c.points) << c.legend;
        EXPECT_FALSE(points[0].m_dEle || points[0].m_time || points[0].m_nSat) << c.legend;
    }
}
