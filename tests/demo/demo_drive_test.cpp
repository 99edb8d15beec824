#include "demo/DemoDrive.h"
#include "gps/GpsFix.h"
#include "gps/NmeaSentence.h"
#include "gps/TrackLogReader.h"
#include "nav/GeoSphere.h"
#include "platform/DeviceClock.h"
#include "support/Golden.h"
#include "support/ToolRunner.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr double kKmhPerKnot = 1.852;

struct DriveFacts {
    int badLines = 0;
    double minutes = 0;
    std::vector<int> invalidRuns; // seconds without a fix, after the first fix
    double maxStepKmh = 0;        // fastest movement between two fixes
    double maxRmcKmh = 0;
    double maxRmcChangeMs2 = 0; // largest change of the receiver's speed from one second to the next
};

DriveFacts factsOf(const QByteArray& log) {
    DriveFacts facts;
    double previousKmh = -1;
    for (const QByteArray& line : log.split('\n').mid(1)) {
        if (line.isEmpty()) continue;
        NmeaFields fields;
        if (!splitNmeaLine(std::string_view(line.constData(), line.size()), fields)) ++facts.badLines;
        if (!fields.isNamed("$GPRMC")) continue;
        if (fields.field(2) != "A") {
            previousKmh = -1;
            continue;
        }
        const double kmh = std::stod(std::string(fields.field(7))) * kKmhPerKnot;
        facts.maxRmcKmh = std::max(facts.maxRmcKmh, kmh);
        if (previousKmh >= 0)
            facts.maxRmcChangeMs2 = std::max(facts.maxRmcChangeMs2, std::fabs(kmh - previousKmh) / 3.6);
        previousKmh = kmh;
    }
    QByteArray bytes = log;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const FixedDeviceClock clock(DemoDriveOptions::kDefaultStartUtc);
    std::vector<TrackPoint> points;
    ReadFromFile(&buffer, points, GpsFix(), clock, true);
    const TrackPoint* lastFix = nullptr;
    for (const TrackPoint& point : points) {
        if (!point.m_nValid) {
            if (lastFix && &point - 1 == lastFix) facts.invalidRuns.push_back(0);
            if (lastFix) ++facts.invalidRuns.back();
            continue;
        }
        if (lastFix) {
            const double km = GeoDistance(lastFix->m_dLong, lastFix->m_dLat, point.m_dLong, point.m_dLat);
            facts.maxStepKmh = std::max(facts.maxStepKmh, km / (point.m_tTime - lastFix->m_tTime) * 3600);
        }
        lastFix = &point;
    }
    facts.minutes = points.empty() ? 0 : (points.back().m_tTime - points.front().m_tTime) / 60.0;
    return facts;
}

} // namespace

TEST(DemoDrive, IsATwentyMinuteDriveWithATunnelAndNoImplausibleStep) {
    const struct {
        const char* legend;
        uint64_t seed;
    } cases[] = {
        {"the seed of the committed demo", 1},
        {"another driver", 2},
        {"a large seed", 18446744073709551557ull},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.legend);
        const QByteArray log = generateDemoDrive({c.seed, DemoDriveOptions::kDefaultStartUtc});
        const DriveFacts facts = factsOf(log);
        EXPECT_EQ(facts.badLines, 0) << "every checksum is right";
        EXPECT_GE(facts.minutes, 18.0);
        EXPECT_LE(facts.minutes, 22.0);
        ASSERT_EQ(facts.invalidRuns.size(), 1u) << "the fix is lost once, in the tunnel";
        EXPECT_GE(facts.invalidRuns.front(), 35);
        EXPECT_LE(facts.invalidRuns.front(), 50);
        EXPECT_GE(facts.maxRmcKmh, 90.0);
        EXPECT_LE(facts.maxRmcKmh, 108.0);
        EXPECT_LE(facts.maxStepKmh, 115.0) << "also across the tunnel";
        EXPECT_LE(facts.maxRmcChangeMs2, 3.0) << "a car's acceleration and braking";
    }
}

TEST(DemoDrive, TheCommittedDemoIsTheDefault) {
    const DemoDriveOptions standard;
    const QByteArray log = generateDemoDrive(standard);
    EXPECT_NE(generateDemoDrive({2, standard.m_tStartUtc}), log) << "another seed, another drive";
    const QByteArray later = generateDemoDrive({standard.m_nSeed, standard.m_tStartUtc + 3600});
    EXPECT_TRUE(later.contains("$GPGGA,081400.00")) << "the start moves the time stamps";
    expectMatchesGolden(TARVIK_SOURCE_DIR "/data/demo/drive.nmea", log);
}

// Duration, top speed and the tunnel are checked on the log itself above; these are the route's figures.
TEST(DemoTool, GeneratesADriveThatReplaysIntoSensibleFigures) {
    QTemporaryDir dir;
    const QString log = dir.filePath("drive.nmea");
    ASSERT_EQ(runTool({"demo", "generate", log, "--seed", "5", "--start", "2025-05-17T07:14:00Z"}).exitCode,
              0);
    const ToolResult replay =
        runTool({"--root", dir.filePath("root"), "replay", log, "--now", "2025-05-17T09:14:00+02:00"});
    ASSERT_EQ(replay.exitCode, 0) << replay.err.toStdString();
    const QJsonObject figures = QJsonDocument::fromJson(replay.out).object();
    const struct {
        const char* field;
        double low, high;
        const char* legend;
    } ranges[] = {
        {"run_km", 17.0, 20.0, "Leutkirch to Isny by road"},
        {"moving_time_s", 800, 1100, "less the standing at lights, lay-by and parking"},
        {"min_alt_m", 590, 620, "Leutkirch, with the default offset of -48 m"},
        {"max_alt_m", 660, 700, "the ridge before the tunnel"},
        {"min_lat", 47.67, 47.70, "Isny"},
        {"max_lat", 47.82, 47.83, "Leutkirch"},
    };
    for (const auto& range : ranges) {
        SCOPED_TRACE(range.legend);
        const double value = figures.value(range.field).toDouble(-1);
        EXPECT_GE(value, range.low) << range.field;
        EXPECT_LE(value, range.high) << range.field;
    }

    EXPECT_EQ(runTool({"demo", "generate", dir.filePath("no/such/folder/x.nmea")}).exitCode, 1);
}
