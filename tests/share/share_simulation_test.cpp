#include "gps/NmeaLineBuilder.h"
#include "gps/share/SimulatedDrive.h"
#include "gps/share/VantrelCommand.h"

#include <QDateTime>
#include <QList>
#include <cmath>
#include <gtest/gtest.h>

namespace {

TEST(ShareVantrelCommand, ReadsTargetsAndTheEndAndRefusesGarbage) {
    using Kind = VantrelCommand::Kind;
    struct Case {
        QByteArray text;
        Kind kind;
        double lat, lon;
        const char* error;
    } cases[] = {
        {"@Vantrel:Simulate=4807.50000,N,01131.00000,E", Kind::SimulateTo, 48.125, 11.516666666666667, ""},
        {"@Vantrel:Simulate=3352.20000,S,15112.60000,W\r\n", Kind::SimulateTo, -33.87, -151.21, ""},
        {"@Vantrel:Simulate=", Kind::SimulateOff, 0, 0, ""},
        {"$PSRF100,1,4800,8,1,0*0E\r\n", Kind::NotForSplitter, 0, 0, ""},
        {"@Vantrel:Simulate=4807.5,N,01131.0", Kind::Invalid, 0, 0,
         "Unreadable simulation target: @Vantrel:Simulate=4807.5,N,01131.0"},
        {"@Vantrel:Simulate=4861.00000,N,01131.00000,E", Kind::Invalid, 0, 0,
         "Unreadable simulation target: @Vantrel:Simulate=4861.00000,N,01131.000..."},
        {"@Vantrel:Simulate=9107.00000,N,01131.00000,X", Kind::Invalid, 0, 0,
         "Unreadable simulation target: @Vantrel:Simulate=9107.00000,N,01131.000..."},
        {"@Vantrel:Reboot\x01", Kind::Invalid, 0, 0, "Unknown splitter command: @Vantrel:Reboot?"},
        {"@Vantrel:" + QByteArray(10240, 'x'), Kind::Invalid, 0, 0,
         "Splitter command too long: @Vantrel:xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx..."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text.left(60).toStdString());
        const VantrelCommand command = readVantrelCommand(c.text);
        EXPECT_EQ(command.m_kind, c.kind);
        EXPECT_NEAR(command.m_dLat, c.lat, 1e-9);
        EXPECT_NEAR(command.m_dLon, c.lon, 1e-9);
        EXPECT_EQ(command.m_strError.toStdString(), c.error);
    }
}

// Great-circle metres on the mean earth sphere, independent of the navigation code.
double haversineMetres(double lat1, double lon1, double lat2, double lon2) {
    const double k = M_PI / 180, r = 6371008.8;
    const double a = std::pow(std::sin((lat2 - lat1) * k / 2), 2) +
                     std::cos(lat1 * k) * std::cos(lat2 * k) * std::pow(std::sin((lon2 - lon1) * k / 2), 2);
    return 2 * r * std::asin(std::sqrt(a));
}

double degrees(const QByteArray& value, const QByteArray& hemisphere, int degreeDigits) {
    const double d = value.left(degreeDigits).toDouble() + value.mid(degreeDigits).toDouble() / 60;
    return hemisphere == "S" || hemisphere == "W" ? -d : d;
}

// A receiver standing still at 48.1 N 11.5 E, one GGA, RMC and GSV a second.
QList<QByteArray> receiverSecond(int second) {
    const QDateTime utc = QDateTime::fromSecsSinceEpoch(1779400000 + second, Qt::UTC);
    const QByteArray time = utc.toString("hhmmss.00").toLatin1(), date = utc.toString("ddMMyy").toLatin1();
    return {
        NmeaLineBuilder("$GPGGA").text(time + ",4806.0000,N,01130.0000,E,1,08,0.9,520.0,M,47.0,M,,").finish(),
        NmeaLineBuilder("$GPRMC").text(time + ",A,4806.0000,N,01130.0000,E,0.0,0.0," + date + ",,").finish(),
        "$GPGSV,1,1,01,05,40,083,46*4C\r\n"};
}

TEST(ShareSimulation, DrivesStraightToTheTargetAtTheSetSpeedStopsAndGivesWayAgain) {
    SimulatedDrive drive;
    drive.setSpeedKmh(50);
    const double targetLat = 48.105, targetLon = 11.51; // about 900 m to the north-east
    QList<QByteArray> out;
    for (const QByteArray& line : receiverSecond(0))
        drive.take(line, out);
    drive.setTarget(targetLat, targetLon);
    QList<QPair<double, double>> positions; // of the simulated GGA, one a second
    QList<QByteArray> others;
    for (int second = 1; second <= 100; ++second) {
        out.clear();
        for (const QByteArray& line : receiverSecond(second))
            drive.take(line, out);
        ASSERT_EQ(out.size(), 3) << second;
        const QList<QByteArray> gga = out[0].split(','), rmc = out[1].split(',');
        ASSERT_TRUE(out[0].startsWith("$GPGGA,") && out[1].startsWith("$GPRMC,"));
        EXPECT_EQ(gga[6], "1");
        EXPECT_EQ(rmc[2], "A");
        positions.append({degrees(gga[2], gga[3], 2), degrees(gga[4], gga[5], 3)});
        others.append(out[2]);
    }
    EXPECT_NEAR(haversineMetres(positions[0].first, positions[0].second, 48.1, 11.5), 0, 0.5);
    const double metresPerSecond = 50 / 3.6;
    for (int i = 1; i < 30; ++i) {
        const double step = haversineMetres(positions[i - 1].first, positions[i - 1].second,
                                            positions[i].first, positions[i].second);
        EXPECT_NEAR(step, metresPerSecond, 0.01 * metresPerSecond) << i;
        EXPECT_LT(haversineMetres(positions[i].first, positions[i].second, targetLat, targetLon),
                  haversineMetres(positions[i - 1].first, positions[i - 1].second, targetLat, targetLon));
    }
    EXPECT_NEAR(haversineMetres(positions.last().first, positions.last().second, targetLat, targetLon), 0,
                0.5);
    EXPECT_EQ(others.last(), "$GPGSV,1,1,01,05,40,083,46*4C\r\n");

    drive.end();
    out.clear();
    for (const QByteArray& line : receiverSecond(101))
        drive.take(line, out);
    EXPECT_EQ(out, receiverSecond(101));
}

} // namespace
