#include "gps/SatelliteTable.h"
#include "gps/SkyReplay.h"
#include "support/Files.h"
#include "support/TestData.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace {

// Satellites in view and used, per system, as "GPS 13/9 GLONASS 10/5".
std::string summary(const SatelliteTable& table) {
    std::map<std::string, std::pair<int, int>> counts;
    for (const SatelliteInView& satellite : table.inView()) {
        auto& [inView, used] = counts[gnssSystemName(satellite.m_system)];
        ++inView;
        used += satellite.m_bUsed ? 1 : 0;
    }
    std::string text;
    for (const auto& [system, count] : counts)
        text += (text.empty() ? "" : " ") + system + " " + std::to_string(count.first) + "/" +
                std::to_string(count.second);
    return text;
}

} // namespace

// The expectations are read off the captures by hand: the last complete GSV group of each talker
// (and signal) for "in view", the last GSA of each system for "used".
TEST(SatelliteTable, ReadsRealCapturesPerSystem) {
    const std::optional<QString> shared = sharedDataDir();
    if (!shared) GTEST_SKIP() << "../shared/data is not there";
    struct Case {
        const char* log;
        bool bAcceptAllTalkers;
        const char* expected;
    } const cases[] = {
        // $GPGSV 13 satellites, $GLGSV 10; $GNGSA: 9 GPS, then 4 GLONASS (67,83,76,82).
        {"gpsd/neo-m8n.log", true, "GLONASS 10/4 GPS 13/9"},
        // Without the setting only $GP counts: no $GPGSA, so nothing is used.
        {"gpsd/neo-m8n.log", false, "GPS 13/0"},
        // BeiDou in $BDGSV (8, 11, 13, 14, 21) and in $GNGSA system 4 as 208, 211, 213.
        {"gpsd/telit-pls83-w.log", true, "BeiDou 5/3 GLONASS 10/5 GPS 10/5 Galileo 13/1"},
        // L1 and L5 groups of the same GPS satellites count once; PRN 51 is SBAS.
        {"gpsd/unicore-um621.log", true, "BeiDou 14/9 GLONASS 8/5 GPS 10/9 Galileo 9/4 SBAS 3/0"},
        // GP and GL groups; $QZGSA, $IMGSA and $BDGSA are empty.
        {"gpsd/gpsdf.log", true, "GLONASS 8/5 GPS 10/9"},
        // A GP-only receiver; PRN 33 is an SBAS satellite.
        {"gpsd/ublox-lea-5h.log", false, "GPS 12/8 SBAS 1/0"},
    };
    for (const Case& c : cases) {
        const QByteArray log = readFile(*shared + "/nmea/" + c.log);
        ASSERT_FALSE(log.isEmpty()) << c.log;
        SatelliteTable table;
        replaySky(log, c.bAcceptAllTalkers, std::nullopt, table);
        EXPECT_EQ(summary(table), c.expected)
            << c.log << (c.bAcceptAllTalkers ? " with" : " without") << " all talkers";
    }
}

TEST(SatelliteTable, KeepsCompleteGroupsAndDropsThoseThatStopComing) {
    struct Case {
        const char* legend;
        QByteArray log;
        const char* expected;
    } const cases[] = {
        {"one message", "$GPGSV,1,1,01,07,10,100,30\n", "GPS 1/0"},
        {"second message missing", "$GPGSV,2,1,05,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45\n", ""},
        {"messages out of order", "$GPGSV,2,2,05,32,88,010,\n$GPGSV,2,1,05,01,40,083,46\n", ""},
        {"a new group starts over", "$GPGSV,2,1,05,01,40,083,46\n$GPGSV,1,1,01,07,10,100,30\n", "GPS 1/0"},
        {"message number 0", "$GPGSV,1,0,01,07,10,100,30\n", ""},
        {"GLONASS gone after a round without it",
         "$GPGSV,1,1,01,07,10,100,30\n$GLGSV,1,1,01,70,20,200,30\n$GPGSV,1,1,01,07,10,100,30\n"
         "$GPGSV,1,1,01,07,10,100,30\n",
         "GPS 1/0"},
        {"GLONASS kept while its group comes each round",
         "$GPGSV,1,1,01,07,10,100,30\n$GLGSV,1,1,01,70,20,200,30\n$GPGSV,1,1,01,07,10,100,30\n"
         "$GLGSV,1,1,01,70,20,200,30\n$GPGSV,1,1,01,07,10,100,30\n",
         "GLONASS 1/0 GPS 1/0"},
        {"a used list replaced by the next GSA of its system",
         "$GPGSV,1,1,02,07,10,100,30,09,15,150,31\n$GPGSA,A,3,07,,,,,,,,,,,,2.0,1.0,1.5\n"
         "$GPGSA,A,3,07,09,,,,,,,,,,,2.0,1.0,1.5\n",
         "GPS 2/2"},
    };
    for (const Case& c : cases) {
        SatelliteTable table;
        replaySky(c.log, true, std::nullopt, table);
        EXPECT_EQ(summary(table), c.expected) << c.legend;
    }
}
