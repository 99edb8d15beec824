#include "support/Files.h"
#include "support/Golden.h"
#include "support/TestData.h"
#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {
// 2026-03-23 00:00:30 UTC, an hour east of Greenwich: the date guard shows on both sides of midnight.
const QString kNow = QStringLiteral("2026-03-23T01:00:30+01:00");
} // namespace

// Every input in tests/data/nmea against its expected tables (see the README there).
TEST(NmeaTool, MatchesTheGoldenTables) {
    const QDir dir(testDataDir() + "/nmea");
    const QStringList inputs = dir.entryList({"*.nmea"}, QDir::Files);
    ASSERT_GE(inputs.size(), 3);
    for (const QString& input : inputs) {
        const QString path = dir.filePath(input);
        const std::pair<const char*, QStringList> runs[] = {
            {".parse.csv", {"nmea", "parse", path, "--now", kNow}},
            {".track.csv", {"track", "read", path, "--now", kNow}},
            {".details.csv", {"track", "read", path, "--details", "--now", kNow}},
        };
        for (const auto& [suffix, args] : runs) {
            TestRoot root;
            const ToolResult result = runTool(QStringList{"--root", root.path()} + args);
            EXPECT_EQ(result.exitCode, 0)
                << input.toStdString() << suffix << ": " << result.err.toStdString();
            expectMatchesGolden(path + suffix, result.out);
        }
    }
}

// The other calls of nmea and track are in tests/data/gps/commands.txt.
TEST(NmeaTool, ParsesStandardInput) {
    TestRoot root;
    const ToolResult result = runTool({"--root", root.path(), "nmea", "parse", "-", "--now", kNow},
                                      "$GPVTG,054.7,T,034.4,M,005.5,N,010.2,K*48\r\n");
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(result.out, "line,code,lon,lat,time,valid,sats,hdop,alt,speed,course,alt_offset\n"
                          "1,32,0,0,2026-03-23T01:00:30+01:00,0,0,0,0,10.2,54.7,-48\n");
}

// The same sentences with CR-only line ends or in UTF-16 read the same in every reader of logs.
TEST(NmeaTool, ReadsEveryLogEncodingLikeAnyOther) {
    TestRoot root;
    const QString lf = testDataDir() + "/replay/circle-3min.nmea";
    const QByteArray bytes = readFile(lf);
    const std::pair<const char*, QByteArray> variants[] = {
        {"CR only", QByteArray(bytes).replace("\r\n", "\r").replace('\n', '\r')},
        {"UTF-16 LE", "\xFF\xFE" + utf16Bytes(QString::fromLatin1(bytes))},
        {"UTF-8 with byte order mark", "\xEF\xBB\xBF" + bytes},
    };
    const auto run = [](QStringList args) {
        TestRoot fresh; // each run starts from the same settings and tour
        const QByteArray out =
            runTool(QStringList{"--root", fresh.path()} + args + QStringList{"--now", kNow}).out;
        const qsizetype logFile = out.indexOf("\"log_file\""); // the name of the track log a replay wrote
        return logFile < 0 ? out : out.left(logFile);
    };
    for (const QStringList& command :
         {QStringList{"track", "read"}, QStringList{"replay"}, QStringList{"nmea", "parse"}}) {
        const QByteArray expected = run(command + QStringList{lf});
        EXPECT_GT(expected.size(), 100) << command.join(' ').toStdString();
        for (const auto& [legend, variant] : variants)
            EXPECT_EQ(run(command + QStringList{writeFile(root.file("variant.nmea"), variant)}), expected)
                << legend << ": " << command.join(' ').toStdString();
    }
}
