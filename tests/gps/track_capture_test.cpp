#include "support/TestData.h"
#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <QDirIterator>
#include <QProcess>
#include <QStandardPaths>
#include <gtest/gtest.h>
#include <map>

namespace {

// Track points of `tarvik-tool track read` with "AcceptAllTalkers": its rows below the header.
int tarvikPoints(const TestRoot& root, const QString& log) {
    const ToolResult result = runTool({"--root", root.path(), "track", "read", log, "--now",
                                       "2026-03-22T12:00:00+01:00", "--set", "AcceptAllTalkers=1"});
    EXPECT_EQ(result.exitCode, 0) << log.toStdString() << ": " << result.err.toStdString();
    return static_cast<int>(result.out.count('\n')) - 1;
}

// Track points of GPSBabel's NMEA reader (test oracle).
int gpsbabelPoints(const QString& log) {
    QProcess babel;
    babel.start("gpsbabel", {"-i", "nmea", "-f", log, "-o", "gpx", "-F", "-"});
    babel.waitForFinished();
    return static_cast<int>(babel.readAllStandardOutput().count("<trkpt "));
}

struct Difference {
    int nTarvik, nGpsbabel;
    const char* reason;
};

} // namespace

// Every capture in ../shared/data/nmea gives as many track points as GPSBabel reads from it, or its
// row below says why not. A log that holds positions gives points.
TEST(TrackCaptures, AgreeWithGpsBabelOrSayWhy) {
    const auto shared = sharedDataDir();
    if (!shared) GTEST_SKIP() << "../shared/data is absent";
    if (QStandardPaths::findExecutable("gpsbabel").isEmpty()) GTEST_SKIP() << "gpsbabel is not installed";
    // Why the counts differ (GPSBabel: one point per fix cycle, dated by RMC; ours: one per GGA).
    const char* const joined =
        "the RMC before the first GGA is a point of its own; GPSBabel joins it with that GGA";
    const char* const firstLeftOut =
        "the RMC before the first GGA is a point of its own, and GPSBabel leaves that first fix out";
    const char* const noDate = "no valid RMC: GPSBabel has no date and drops every point";
    const char* const twoConstellations =
        "a GGA of each constellation every second, all taken with AcceptAllTalkers; GPSBabel reads GP only";
    const std::map<QString, Difference> differences = {
        {"gpsbabel/nmea+ms.txt", {30, 26, "four fixes a second, some out of order: GPSBabel drops a few"}},
        {"gpsd/GPSmap-76S.log", {12, 0, noDate}},
        {"gpsd/ais-nmea.log", {165, 164, joined}},
        {"gpsd/com-1289.log", {15, 14, joined}},
        {"gpsd/eXplorist210.log", {4, 5, "GPSBabel makes a point of the first GLL too"}},
        {"gpsd/foretrex-201.log", {8, 6, firstLeftOut}},
        {"gpsd/furuno_gl_ga.log", {17, 16, joined}},
        {"gpsd/garmin-geko201.log", {18, 0, noDate}},
        {"gpsd/garmin15x.log", {8, 7, joined}},
        {"gpsd/garmin17n.log", {3, 2, joined}},
        {"gpsd/garmin25lp.log", {11, 9, firstLeftOut}},
        {"gpsd/garmin48.log", {8, 7, joined}},
        {"gpsd/gp-320fw-2019-04-07-coldboot.log", {2, 1, "GPSBabel drops the GGA before the first RMC"}},
        {"gpsd/isync.log", {13, 12, joined}},
        {"gpsd/navika-100-fix.log", {21, 20, joined}},
        {"gpsd/nl2008u.log", {10, 9, joined}},
        {"gpsd/nl402u.log", {10, 9, joined}},
        {"gpsd/rx210.log", {41, 39, firstLeftOut}},
        {"gpsd/sirfstarv-nmea.log", {118, 59, twoConstellations}},
        {"gpsd/sl869.log", {9, 7, firstLeftOut}},
        {"gpsd/telit-pls83-w.log", {20, 10, twoConstellations}},
        {"gpsd/ublox-8.log", {72, 71, joined}},
        {"gpsd/ublox-zed-f9t-ubx_nmea_l5.log", {9, 8, joined}},
        {"gpsd/unicore-um621.log", {17, 16, joined}},
        {"pynmea2/data.log", {1, 0, "GGA only: GPSBabel has no date and drops the point"}},
    };
    TestRoot root;
    std::map<QString, bool> seen;
    for (QDirIterator it(*shared + "/nmea", QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString path = it.next();
        const QString name = path.mid(shared->size() + 6);
        const int tarvik = tarvikPoints(root, path), gpsbabel = gpsbabelPoints(path);
        seen[name] = true;
        const auto row = differences.find(name);
        if (row == differences.end()) {
            EXPECT_EQ(tarvik, gpsbabel) << name.toStdString();
            continue;
        }
        EXPECT_EQ(tarvik, row->second.nTarvik) << name.toStdString() << ": " << row->second.reason;
        EXPECT_EQ(gpsbabel, row->second.nGpsbabel) << name.toStdString() << ": " << row->second.reason;
    }
    EXPECT_GE(seen.size(), 78u);
    for (const auto& [name, row] : differences)
        EXPECT_TRUE(seen.count(name)) << name.toStdString();
}
