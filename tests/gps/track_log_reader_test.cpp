#include "gps/TrackLogReader.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestData.h"
#include "support/TestRoot.h"

#include <QBuffer>
#include <QFile>
#include <QTime>
#include <gtest/gtest.h>
#include <map>

namespace {

const FixedDeviceClock kClock(1774220400, 3600); // 2026-03-22 23:00 UTC

std::vector<TrackPoint> readBytes(const QByteArray& bytes, bool bDetails, bool bAcceptAllTalkers = false) {
    QByteArray data = bytes;
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    std::vector<TrackPoint> points{TrackPoint{}};
    EXPECT_TRUE(ReadFromFile(&buffer, points, GpsFix{}, kClock, bDetails, bAcceptAllTalkers));
    return points;
}

// The text as a UTF-16 log with its byte order mark, as Windows loggers write it.
QByteArray utf16(const QByteArray& text, bool bBigEndian) {
    return (bBigEndian ? "\xFE\xFF" : "\xFF\xFE") + utf16Bytes(QString::fromLatin1(text), bBigEndian);
}

// A device whose reading breaks down after the first block.
class FailingDevice : public QIODevice {
protected:
    qint64 readData(char* data, qint64 maxSize) override {
        if (m_bFailed) return -1;
        m_bFailed = true;
        const QByteArray line = "$GPGGA,120000,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,\n";
        memcpy(data, line.constData(), std::min<qint64>(maxSize, line.size()));
        return std::min<qint64>(maxSize, line.size());
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    bool m_bFailed = false;
};

} // namespace

TEST(TrackLogReader, FollowsTheSentenceRules) {
    const QByteArray gga = "$GPGGA,120000,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,\n";
    const QByteArray noFix = "$GPGGA,120001,4807.038,N,01131.000,E,0,00,0.0,545.4,M,46.9,M,,\n";
    const QByteArray rmc = "$GPRMC,115959,A,4807.000,N,01131.000,E,10.0,84.4,230394,,\n";
    const QByteArray rmcVoid = "$GPRMC,115959,V,4807.000,N,01131.000,E,10.0,84.4,230394,,\n";
    const QByteArray vtg = "$GPVTG,054.7,T,034.4,M,005.5,N,010.2,K\n";
    struct Case {
        const char* legend;
        QByteArray bytes;
        bool bDetails;
        size_t nPoints;
        float fLastSpeed;
        bool bAcceptAllTalkers = false;
    } const cases[] = {
        {"no fix skipped without details", gga + noFix, false, 1, 0},
        {"no fix kept with details", gga + noFix, true, 2, 0},
        {"RMC before the first GGA", rmc + gga + rmc, false, 2, 0},
        {"void RMC skipped without details", rmcVoid + rmc, false, 1, 0},
        {"void RMC kept with details, speed from it", rmcVoid, true, 1, 18.51998f},
        {"VTG speed carried into the next point", vtg + gga, true, 1, 10.2f},
        {"VTG ignored without details", vtg + gga, false, 1, 0},
        {"a line of 1023 bytes is cut before the next sentence", QByteArray(1023, 'x') + gga, false, 1, 0},
        {"a longer one is not", QByteArray(1024, 'x') + gga, false, 0, 0},
        {"last line without newline", gga.chopped(1), false, 1, 0},
        {"NUL bytes and binary junk", QByteArray("\0\xff$GP\0\n", 7) + gga + QByteArray(300, '\0'), false, 1,
         0},
        {"lines ending in CR only", QByteArray(gga + gga + gga).replace('\n', '\r'), false, 3, 0},
        {"lines ending in CR LF", QByteArray(gga + gga).replace("\n", "\r\n"), false, 2, 0},
        {"CR only across the 64 KiB read block",
         (QByteArray(99, ' ') + '\n').repeated(655) + QByteArray(gga + gga).replace('\n', '\r'), false, 2, 0},
        {"UTF-16 LE", utf16(gga + noFix + gga, false), false, 2, 0},
        {"UTF-16 BE", utf16(gga + gga, true), false, 2, 0},
        {"UTF-16 across the 64 KiB read block, cut inside a character",
         utf16((QByteArray(99, ' ') + '\n').repeated(400) + gga + gga, false), false, 2, 0},
        {"a UTF-8 byte order mark before the first sentence", "\xEF\xBB\xBF" + gga, false, 1, 0},
        {"a multi-constellation fix is not GPS by default", "$GNGGA" + gga.mid(6), false, 0, 0},
        {"with AcceptAllTalkers it is", "$GNGGA" + gga.mid(6), false, 1, 0, true},
    };
    for (const Case& c : cases) {
        const std::vector<TrackPoint> points = readBytes(c.bytes, c.bDetails, c.bAcceptAllTalkers);
        EXPECT_EQ(points.size(), c.nPoints) << c.legend;
        if (!points.empty()) {
            EXPECT_EQ(points.back().m_fSpeed, c.fLastSpeed) << c.legend;
        }
    }
}

TEST(TrackLogReader, RefusesWhatCannotBeRewound) {
    std::vector<TrackPoint> points;
    QBuffer closed;
    EXPECT_FALSE(ReadFromFile(nullptr, points, GpsFix{}, kClock, false));
    EXPECT_FALSE(ReadFromFile(&closed, points, GpsFix{}, kClock, false));
}

TEST(TrackLogReader, LogsAReadFaultAndKeepsWhatItRead) {
    TestRoot root;
    CRegistryKey().WriteString("Develop", root.file("dev.log"));
    FailingDevice device;
    device.open(QIODevice::ReadOnly);
    std::vector<TrackPoint> points;
    EXPECT_TRUE(ReadFromFile(&device, points, GpsFix{}, kClock, false));
    EXPECT_EQ(points.size(), 1u);
    EXPECT_TRUE(readFile(root.file("dev.log")).contains("!!!!!!!!!!GetExceptionCode in ReadFromFile:"));
}

// Positions as GPSBabel reads the same logs (see tests/data/nmea/README.md).
TEST(TrackLogReader, AgreesWithGpsBabelOnPositions) {
    for (const char* name : {"gga-log.nmea", "rmc-head.nmea"}) {
        QFile log(testDataDir() + "/nmea/" + name);
        ASSERT_TRUE(log.open(QIODevice::ReadOnly)) << name;
        std::vector<TrackPoint> points;
        ASSERT_TRUE(ReadFromFile(&log, points, GpsFix{}, kClock, true));
        std::map<QString, std::pair<double, double>> expected;
        for (const QByteArray& row : readFile(log.fileName() + ".gpsbabel.csv").split('\n').mid(1)) {
            const QList<QByteArray> cells = row.split(',');
            if (cells.size() == 3) expected[cells[0]] = {cells[1].toDouble(), cells[2].toDouble()};
        }
        int compared = 0;
        for (const TrackPoint& point : points) {
            const auto it = expected.find(isoLocalTime(point.m_tTime - 3600, 0).mid(11, 8));
            if (it == expected.end()) continue;
            ++compared;
            EXPECT_NEAR(point.m_dLat, it->second.first, 1e-7) << name << ' ' << it->first.toStdString();
            EXPECT_NEAR(point.m_dLong, it->second.second, 1e-7) << name << ' ' << it->first.toStdString();
        }
        EXPECT_GE(compared, 3) << name;
    }
}
