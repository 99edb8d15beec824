#include "gps/NmeaInterpreter.h"
#include "gps/SatelliteTable.h"
#include "platform/DeviceClock.h"

#include <gtest/gtest.h>
#include <string>

namespace {
const int64_t kNowUtc = 1795305630; // 2026-11-22 00:00:30 UTC
}

// The examples every port of the interpreter must reproduce exactly.
TEST(NmeaInterpreter, ReproducesTheReferenceExamples) {
    struct Case {
        const char *legend, *line;
        uint16_t nCode;
        double dLat, dLong;
        int nValid, nSatellites;
        float fHdop, fAltitude, fSpeed, fCourse;
    } const cases[] = {
        {"Munich GGA", "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47", 70, 48.1173,
         11.516666666666666, 1, 8, 0.9f, 498.4f, 0, 0},
        {"wrong checksum changes nothing",
         "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*46", 0, 0, 0, 0, 0, 0, 0, 0, 0},
        {"GGA with nine fields", "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9", 1, 0, 0, 0, 0, 0, 0, 0, 0},
        {"RMC 10 knots, single-precision factor", "$GPRMC,123519,A,4807.038,N,01131.000,E,10.0,84.4,230394,,",
         98, 48.1173, 11.516666666666666, 1, 0, 0, 0, 18.51998f, 84.4f},
        {"RMC 1 knot keeps the course", "$GPRMC,123519,A,4807.038,N,01131.000,E,1.0,84.4,230394,,", 98,
         48.1173, 11.516666666666666, 1, 0, 0, 0, 1.851998f, 0},
        {"GLL with status V still stores the position", "$GPGLL,4916.45,N,12311.12,W,225444,V,", 66,
         49.274166666666666, -123.18533333333333, 0, 0, 0, 0, 0, 0},
        {"GSA with twelve PRNs counts eleven", "$GPGSA,A,3,1,2,3,4,5,6,7,8,9,10,11,12,2.5,1.3,2.1", 1, 0, 0,
         0, 11, 1.3f, 0, 0, 0},
        {"VTG", "$GPVTG,054.7,T,034.4,M,005.5,N,010.2,K*48", 32, 0, 0, 0, 0, 0, 0, 10.2f, 54.7f},
    };
    for (const Case& c : cases) {
        FixedDeviceClock clock(kNowUtc, 0);
        NmeaInterpreter interpreter(clock);
        GpsFix fix;
        EXPECT_EQ(interpreter.interpret(c.line, fix), c.nCode) << c.legend;
        EXPECT_NEAR(fix.m_dPosLat, c.dLat, 1e-12) << c.legend;
        EXPECT_NEAR(fix.m_dPosLong, c.dLong, 1e-12) << c.legend;
        EXPECT_EQ(fix.m_nValid, c.nValid) << c.legend;
        EXPECT_EQ(fix.m_nSatellites, c.nSatellites) << c.legend;
        EXPECT_FLOAT_EQ(fix.m_fHdop, c.fHdop) << c.legend;
        EXPECT_FLOAT_EQ(fix.m_fAltitude, c.nCode == 0 || c.nCode == 1 ? 0 : c.fAltitude) << c.legend;
        EXPECT_EQ(fix.m_fSpeed, c.fSpeed) << c.legend;
        EXPECT_FLOAT_EQ(fix.m_fCourse, c.fCourse) << c.legend;
    }
}

TEST(NmeaInterpreter, SetsTheDeviceClockOnceFromASerialFix) {
    const char* const gga = "$GPGGA,235959,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";
    struct Case {
        const char *legend, *line;
        uint8_t nSource;
        int nRequests;
    } const cases[] = {
        {"GGA from COM1", gga, 1, 1},
        {"GGA from the file source", gga, 10, 0},
        {"GGA without satellites", "$GPGGA,235959,4807.038,N,01131.000,E,1,00,0.9,545.4,M,46.9,M,,", 1, 0},
        {"GGA without fix", "$GPGGA,235959,4807.038,N,01131.000,E,0,08,0.9,545.4,M,46.9,M,,", 1, 0},
        {"RMC needs no satellites", "$GPRMC,235959,A,4807.038,N,01131.000,E,0.0,0.0,230394,,", 9, 1},
        {"RMC void", "$GPRMC,235959,V,4807.038,N,01131.000,E,0.0,0.0,230394,,", 0, 0},
    };
    for (const Case& c : cases) {
        FixedDeviceClock clock(kNowUtc, 3600);
        NmeaInterpreter interpreter(clock);
        GpsFix fix;
        fix.m_nSource = c.nSource;
        interpreter.interpret(c.line, fix);
        interpreter.interpret(c.line, fix); // a second fix never sets it again
        EXPECT_EQ(clock.setTimeRequests(), c.nRequests) << c.legend;
        EXPECT_EQ(fix.m_bSetSystemTime, c.nRequests == 0) << c.legend;
        if (c.nRequests) { // 23:59:59 UTC
            EXPECT_EQ(clock.lastSetTimeRequest(), kNowUtc - 31) << c.legend;
        }
    }
}

TEST(NmeaInterpreter, HandsSatelliteSentencesToTheObserver) {
    FixedDeviceClock clock(kNowUtc, 0);
    NmeaInterpreter interpreter(clock);
    SatelliteTable satellites;
    interpreter.setSatelliteObserver(&satellites);
    GpsFix fix;
    const char* const lines[] = {
        "$GPGSV,2,1,05,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45*78",
        "$GPGSV,2,2,05,32,88,010,*4C",
        "$GPGSA,A,3,01,02,,,,,,,,,,,2.5,1.3,2.1*37",
    };
    for (const char* line : lines)
        EXPECT_EQ(interpreter.interpret(line, fix), GpsChange::kUnderstood) << line;
    // PRN elevation azimuth SNR, "u" when used.
    std::string seen;
    for (const SatelliteInView& s : satellites.inView())
        seen += std::to_string(s.m_nPrn) + ' ' + std::to_string(s.m_nElevation) + ' ' +
                std::to_string(s.m_nAzimuth) + ' ' + std::to_string(s.m_nSnr) + (s.m_bUsed ? " u|" : "|");
    EXPECT_EQ(seen, "1 40 83 46 u|2 17 308 41 u|12 7 344 39|14 22 228 45|32 88 10 0|");
    EXPECT_EQ(satellites.fixMode(), 3);
    EXPECT_FLOAT_EQ(satellites.vdop(), 2.1f);
    EXPECT_EQ(fix.m_nSatellites, 2);
}
