#include "gps/HeadlessReplay.h"
#include "gps/logbook/Logbook.h"
#include "platform/DeviceClock.h"
#include "support/Files.h"
#include "support/GpsBabel.h"
#include "support/TestData.h"
#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <QFile>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

const QByteArray kBlankHeader = "$Tarvik," + QByteArray(256, ' ') + "\r\n";

QByteArray sharedLog(const char* name) {
    const std::optional<QString> shared = sharedDataDir();
    return shared ? readFile(*shared + "/nmea/" + name) : QByteArray();
}

} // namespace

TEST(Logbook, DistanceIsTheReplayRunDistanceAndStaysInPlace) {
    TestRoot root;
    for (const char* name : {"gpsbabel/track-nmea.nmea", "signalk/gps.log", "gpsd/haicom-305N.log"}) {
        const QByteArray sentences = sharedLog(name);
        if (sentences.isEmpty()) GTEST_SKIP() << "../shared/data is not there";
        const QByteArray log = kBlankHeader + sentences;
        const QString path = root.file("2024-05-01_10-00.txt");
        writeFile(path, log);
        FixedDeviceClock clock(1714557600, 0);
        const ReplaySummary replay = replayLog(root.root(), clock, log);

        const LogbookEntry filled = Logbook::readEntry(path, root.root(), true);
        EXPECT_EQ(filled.m_headerState, LogHeader::State::Filled)
            << name << filled.m_strProblem.toStdString();
        EXPECT_DOUBLE_EQ(filled.m_fields.m_dKm, replay.m_stats.m_dRunDistance) << name;
        EXPECT_EQ(filled.m_fields.m_nSeconds, replay.m_stats.m_nRunTime) << name;
        // Read back from the header: the distance as "%.1f" stored it.
        const LogbookEntry again = Logbook::readEntry(path, root.root(), true);
        EXPECT_EQ(QString::number(again.m_fields.m_dKm, 'f', 1),
                  QString::number(replay.m_stats.m_dRunDistance, 'f', 1));

        QString problem;
        for (int i = 0; i < 2; ++i)
            ASSERT_TRUE(Logbook::writeComment(path, QStringLiteral("Fahrt über Land"), root.root(), problem))
                << problem.toStdString();
        const QByteArray after = readFile(path);
        ASSERT_EQ(after.size(), log.size()) << name;
        EXPECT_EQ(after.mid(kBlankHeader.size()), sentences) << name;
        EXPECT_EQ(Logbook::readEntry(path, root.root(), false).m_fields.m_strComment,
                  QStringLiteral("Fahrt über Land"));
    }
}

TEST(Logbook, BadLogsGetAReasonAndStayUnchanged) {
    TestRoot root;
    const QByteArray sentence = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
    struct Case {
        const char* legend;
        QByteArray bytes;
        QString comment;
        const char* problem; // part of the message
    } const cases[] = {
        {"no header", sentence, "x", "has no logbook header"},
        {"binary in the reserved area", "$Tarvik," + QByteArray(256, '\x01') + "\r\n" + sentence, "x",
         "holds something else"},
        {"text of another kind", "$Tarvik,hello" + QByteArray(251, ' ') + "\r\n" + sentence, "x",
         "holds something else"},
        {"short header", "$Tarvik,   \r\n" + sentence, "x", "has no logbook header"},
        {"junk only", QByteArray(4000, '\xff'), "x", "has no logbook header"},
        {"comment with a comma", kBlankHeader + sentence, "a,b", "cannot hold"},
        {"comment too long", kBlankHeader + sentence, QString(300, 'a'), "too long"},
    };
    for (const Case& c : cases) {
        const QString path = root.file("2024-05-01_10-00.txt");
        writeFile(path, c.bytes);
        QString problem;
        EXPECT_FALSE(Logbook::writeComment(path, c.comment, root.root(), problem)) << c.legend;
        EXPECT_TRUE(problem.contains(QLatin1String(c.problem))) << c.legend << ": " << problem.toStdString();
        EXPECT_EQ(readFile(path), c.bytes) << c.legend;
    }
}

TEST(Logbook, ReadOnlyLogsAreListedButNotWritten) {
    TestRoot root;
    const QString path = root.file("2024-05-01_10-00.txt");
    const QByteArray log =
        kBlankHeader + "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
    writeFile(path, log);
    QFile::setPermissions(path, QFile::ReadOwner);
    if (QFile(path).open(QIODevice::ReadWrite)) GTEST_SKIP() << "running with rights that ignore file modes";
    const std::vector<LogbookEntry> entries = Logbook::list(root.path(), root.root(), true);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_TRUE(entries[0].m_strProblem.contains(QLatin1String("cannot write")));
    EXPECT_EQ(readFile(path), log);
    const ToolResult result = runTool({"--root", root.path(), "log", "comment", path, "x"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err.count('\n'), 1);
}

// GPSBabel is the oracle: the KML and GPX exports read back by it give the points, times and
// altitudes it reads from the log itself; GPX also the fix, satellites and HDOP. (GPSBabel reads no
// speed or course from GPX.)
TEST(LogExport, ExportsReadBackInGpsBabelAsTheLogItself) {
    const std::optional<QString> shared = sharedDataDir();
    if (QStandardPaths::findExecutable(QStringLiteral("gpsbabel")).isEmpty() || !shared)
        GTEST_SKIP() << "needs gpsbabel and ../shared/data";
    TestRoot root;
    const auto babel = [](const QString& format, const QString& file, const QStringList& columns) {
        QStringList rows;
        for (const QMap<QString, QString>& row : gpsbabelRows({"-t", "-i", format}, file)) {
            QStringList cells;
            for (const QString& column : columns)
                cells << row.value(column, "missing");
            rows << cells.join(';');
        }
        return rows;
    };
    const QStringList placed = {"Latitude", "Longitude", "Altitude", "Date", "Time"};
    struct Case {
        const char *option, *format; // GPSBabel's format
        QStringList columns;
    } const cases[] = {
        {"--kml", "kml", placed},
        {"--gpx", "gpx", placed + QStringList{"FIX", "Satellites", "HDOP"}},
    };
    // Only logs whose epochs all carry GGA and RMC: where a log starts with an RMC of its own,
    // GPSBabel makes a point of it without altitude, which the export joins to the GGA's epoch.
    const QString log = *shared + "/nmea/gpsbabel/track-nmea.nmea";
    ASSERT_FALSE(babel("nmea", log, placed).isEmpty()) << "GPSBabel reads no points";
    for (const Case& c : cases) {
        const QString out = root.file(QStringLiteral("out.") + c.format);
        const ToolResult result = runTool({"--root", root.path(), "log", "export", log, c.option, out});
        ASSERT_EQ(result.exitCode, 0) << c.option << result.err.toStdString();
        EXPECT_EQ(babel(c.format, out, c.columns).join('\n').toStdString(),
                  babel("nmea", log, c.columns).join('\n').toStdString())
            << c.option;
    }
}
