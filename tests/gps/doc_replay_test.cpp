#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/Golden.h"
#include "support/TestData.h"
#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

namespace {

const QStringList kReplayOptions = {"--now", "2026-05-22T12:00:00Z", "--set", "LogDelay=0",
                                    "--set", "LogType=$GPGGA,$GPRMC"};

// Replays `log` into a fresh root; returns the JSON with the root's path replaced by "<root>" and
// the bytes of the log file the run wrote.
std::pair<QByteArray, QByteArray> replay(const QString& log) {
    TestRoot root;
    const ToolResult result = runTool(QStringList{"--root", root.path(), "replay", log} + kReplayOptions);
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QString logFile = QJsonDocument::fromJson(result.out).object().value("log_file").toString();
    return {QByteArray(result.out).replace(root.path().toUtf8(), "<root>"), readFile(logFile)};
}

// The GGA and RMC sentences of `log`, as the run must have recorded them with "LogDelay" 0.
QByteArray ggaAndRmcOf(const QString& log) {
    QByteArray expected;
    for (const QByteArray& piece : readFile(log).split('$'))
        if (piece.startsWith("GPGGA") || piece.startsWith("GPRMC")) expected += '$' + piece;
    return expected;
}

TEST(DocReplay, MatchesTheExpectedSummaries) {
    const QDir dir(testDataDir() + "/replay");
    const QStringList logs = dir.entryList({"*.nmea"}, QDir::Files);
    ASSERT_FALSE(logs.isEmpty());
    for (const QString& name : logs) {
        const auto [json, written] = replay(dir.filePath(name));
        expectMatchesGolden(dir.filePath(name + ".json"), json);
        EXPECT_TRUE(written.startsWith("$Tarvik," + QByteArray(256, ' ') + "\r\n")) << name.toStdString();
        EXPECT_EQ(written.mid(266), ggaAndRmcOf(dir.filePath(name))) << name.toStdString();
    }
}

TEST(DocReplay, KeepsTheTourAcrossRuns) {
    TestRoot root;
    const QString log = testDataDir() + "/replay/lost-fix-and-jumps.nmea";
    double tourKm[2] = {};
    for (double& km : tourKm) {
        const ToolResult result = runTool(QStringList{"--root", root.path(), "replay", log} + kReplayOptions);
        km = QJsonDocument::fromJson(result.out).object().value("tour_km").toDouble();
    }
    EXPECT_GT(tourKm[0], 0.0);
    // "Tour" is stored as "%f": a millionth of a km is what the store keeps.
    EXPECT_NEAR(tourKm[1], 2 * tourKm[0], 1e-6) << "the second run goes on with the saved tour";
    uint32_t tourStart = 0;
    EXPECT_TRUE(CRegistryKey().ReadDword("TourStart", tourStart));
    EXPECT_EQ(tourStart, 1779451200u) << "the missing tour was reset at --now";
}

// Real receiver logs from ../shared/data, each with its expected summary in tests/data/replay/shared.
TEST(DocReplay, SummarisesRealLogs) {
    const auto shared = sharedDataDir();
    if (!shared) GTEST_SKIP() << "../shared/data is not there";
    const char* logs[] = {"nmea/signalk/gps.log", "nmea/gpsbabel/track-nmea.nmea",
                          "nmea/gpsbabel/nmea+ms.txt", "nmea/gpsd/gp-320fw-2019-04-07-coldboot.log",
                          "nmea/gpsbabel/nmea_utf16_dos.nmea"};
    for (const char* log : logs) {
        const QString expected = testDataDir() + "/replay/shared/" + QFileInfo(log).fileName() + ".json";
        expectMatchesGolden(expected, replay(*shared + '/' + log).first);
    }
}

} // namespace
