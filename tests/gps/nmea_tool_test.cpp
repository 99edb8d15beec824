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

TEST(NmeaTool, AnswersEveryCall) {
    TestRoot root;
    const QString missing = root.file("missing.nmea");
    struct Case {
        const char* legend;
        QStringList args;
        QByteArray input;
        int nExit;
        QByteArray out; // empty: not checked
    } const cases[] = {
        {"stand-in GGA",
         {"nmea", "gga", "--lon", "11.516666666666666", "--lat", "48.1173", "--time",
          "2026-11-22T13:35:19+01:00", "--valid", "1", "--sats", "8"},
         {},
         0,
         "$GPGGA,123519.00,4807.03800,N,01131.00000,E,1,8,1.2,0.0,M,,,,0000*0b\r\n"},
        {"stand-in GGA without fix, south-west",
         {"nmea", "gga", "--lon", "-0.5", "--lat", "0", "--time", "2026-11-22T00:00:00Z", "--valid", "0",
          "--sats", "0"},
         {},
         0,
         "$GPGGA,000000.00,0000.00000,S,00030.00000,W,0,0,50.0,0.0,M,,,,0000*37\r\n"},
        {"parse from stdin, source 10",
         {"nmea", "parse", "-", "--source", "10", "--now", kNow},
         "$GPVTG,054.7,T,034.4,M,005.5,N,010.2,K*48\r\n",
         0,
         "line,code,lon,lat,time,valid,sats,hdop,alt,speed,course,alt_offset\n"
         "1,32,0,0,2026-03-23T01:00:30+01:00,0,0,0,0,10.2,54.7,-48\n"},
        {"help", {"nmea", "--help"}, {}, 0, {}},
        {"track help", {"track", "read", "--help"}, {}, 0, {}},
        {"unknown verb", {"nmea", "sing"}, {}, 2, ""},
        {"bad --now", {"nmea", "parse", "-", "--now", "yesterday"}, {}, 2, ""},
        {"latitude out of range",
         {"nmea", "gga", "--lon", "0", "--lat", "91", "--time", kNow, "--valid", "1", "--sats", "1"},
         {},
         2,
         ""},
        {"no such log", {"track", "read", missing}, {}, 1, ""},
        {"no such input", {"nmea", "parse", missing}, {}, 1, ""},
    };
    for (const Case& c : cases) {
        const ToolResult result = runTool(QStringList{"--root", root.path()} + c.args, c.input);
        EXPECT_EQ(result.exitCode, c.nExit) << c.legend << ": " << result.err.toStdString();
        if (!c.out.isNull()) {
            EXPECT_EQ(result.out, c.out) << c.legend;
        }
    }
}

// The same sentences with CR-only line ends read the same in every reader of logs.
TEST(NmeaTool, ReadsCrOnlyLogsLikeAnyOther) {
    TestRoot root;
    QFile lf(testDataDir() + "/replay/circle-3min.nmea");
    ASSERT_TRUE(lf.open(QIODevice::ReadOnly));
    const QByteArray bytes = lf.readAll();
    QFile cr(root.file("cr-only.nmea"));
    ASSERT_TRUE(cr.open(QIODevice::WriteOnly));
    cr.write(QByteArray(bytes).replace("\r\n", "\r").replace('\n', '\r'));
    cr.close();
    const auto run = [&root](QStringList args) {
        TestRoot fresh; // each run starts from the same settings and tour
        return runTool(QStringList{"--root", fresh.path()} + args + QStringList{"--now", kNow}).out;
    };
    const int sentences = int(bytes.count('\n'));
    for (const char* verb : {"track", "replay"}) {
        const QStringList args =
            verb == QByteArray("track") ? QStringList{"track", "read"} : QStringList{"replay"};
        // Everything but the name of the track log the replay wrote.
        const auto withoutLogFile = [](QByteArray out) { return out.left(out.indexOf("\"log_file\"")); };
        EXPECT_EQ(withoutLogFile(run(args + QStringList{lf.fileName()})),
                  withoutLogFile(run(args + QStringList{cr.fileName()})))
            << verb;
    }
    EXPECT_EQ(run({"nmea", "parse", cr.fileName()}).count('\n'), sentences + 1) << "a row per sentence";
}
