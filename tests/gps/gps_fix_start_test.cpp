#include "gps/GpsFix.h"
#include "gps/GpsSettings.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

TEST(GpsFixStart, ReadsTheSettingsAndWritesBackTheMarkedOnes) {
    struct Case {
        const char* legend;
        bool bStored; // a value for every setting in the hive beforehand
    } const cases[] = {{"fresh hive", false}, {"stored values", true}};
    for (const Case& c : cases) {
        TestRoot root;
        CRegistryKey key;
        if (c.bStored) {
            key.WriteDword("AltitudeOffset", static_cast<uint32_t>(-12));
            key.WriteFlag("AutoAltitudeOffset", false);
            key.WriteFloat("ThresholdHeading", 3.5f);
            key.WriteFlag("SetSystemTime", false);
            key.WriteDouble("LastLong", 11.5);
            key.WriteDouble("LastLat", 48.25);
        }
        const FixedDeviceClock clock(1795305630, 3600);
        GpsFix fix;
        fix.m_nValid = 1;
        loadGpsFixStart(fix, clock);
        EXPECT_EQ(fix.m_nAltitudeOffset, c.bStored ? -12 : -48) << c.legend;
        EXPECT_EQ(fix.m_bAutoAltitudeOffset, !c.bStored) << c.legend;
        EXPECT_EQ(fix.m_fThresholdHeading, c.bStored ? 3.5f : 2.0f) << c.legend;
        EXPECT_EQ(fix.m_bSetSystemTime, !c.bStored) << c.legend;
        EXPECT_EQ(fix.m_dPosLong, c.bStored ? 11.5 : 0) << c.legend;
        EXPECT_EQ(fix.m_dPosLat, c.bStored ? 48.25 : 0) << c.legend;
        EXPECT_EQ(fix.m_tFixTime, 1795305630 + 3600) << c.legend;
        EXPECT_EQ(fix.m_tPrevFixTime, fix.m_tFixTime - 86400) << c.legend;
        EXPECT_EQ(fix.m_nValid, 0) << c.legend;
        bool bCheck = false;
        EXPECT_TRUE(key.ReadFlag("CheckCheckSum", bCheck) && bCheck) << c.legend;
        uint32_t offset = 0;
        EXPECT_EQ(key.ReadDword("AltitudeOffset", offset), c.bStored) << c.legend; // never written back
    }
}

TEST(DeviceClock, WritesAndReadsIsoTimes) {
    const std::tuple<const char*, int64_t, int32_t> cases[] = {
        {"2026-11-22T00:00:30+00:00", 1795305630, 0},
        {"2026-11-22T01:00:30+01:00", 1795305630 + 3600, 3600},
        {"2026-11-21T19:30:30-04:30", 1795305630 - 16200, -16200},
        {"2024-02-29T12:00:00+00:00", 1709208000, 0}, // leap day
        {"1969-12-31T23:59:59+00:00", -1, 0},
    };
    for (const auto& [text, local, offset] : cases) {
        EXPECT_EQ(isoLocalTime(local, offset), text);
        const auto clock = FixedDeviceClock::fromIso8601(text);
        ASSERT_TRUE(clock.has_value()) << text;
        EXPECT_EQ(clock->localNow(), local) << text;
        EXPECT_EQ(clock->localOffset(), offset) << text;
    }
    EXPECT_FALSE(FixedDeviceClock::fromIso8601("22.11.2026").has_value());
}
