#include "gps/sound/VolumeRules.h"

#include <gtest/gtest.h>

namespace {

// Speed volume from MinVol 10 to MaxVol 100 at 120 km/h, and noise weight `dynaSound`.
VolumeSettings settings(bool bSpeedVol, int dynaSound = 0, int minVol = 10, int maxVol = 100,
                        int maxVolSpeed = 120) {
    return {bSpeedVol, maxVolSpeed, maxVol, minVol, dynaSound};
}

TEST(VolumeRules, FollowsSpeedNoiseAndBaseVolume) {
    const struct {
        const char* legend;
        VolumeSettings settings;
        VolumeInput input; // speed, noise measured, level, base, sound on
        const char* label;
    } cases[] = {
        {"standing: the minimum", settings(true), {0.0f}, "10 % (0 km/h)"},
        {"half of MaxVolSpeed: half the range", settings(true), {60.0f}, "55 % (60 km/h)"},
        {"share truncated: 59.9/120*90 = 44.925", settings(true), {59.9f}, "54 % (60 km/h)"},
        {"beyond MaxVolSpeed capped at 100", settings(true), {200.0f}, "100 % (200 km/h)"},
        {"MaxVolSpeed 0 gives the maximum at once", settings(true, 0, 10, 80, 0), {5.0f}, "80 % (5 km/h)"},
        {"minimum above maximum: not below 0", settings(true, 0, 90, 0), {400.0f}, "0 % (400 km/h)"},
        {"noise alone: 10 + trunc(128*50*90/25600)",
         settings(false, 50),
         {0.0f, true, 128},
         "32 % (Level 128)"},
        {"weight 100, loudest noise: nearly all",
         settings(false, 100),
         {0.0f, true, 255},
         "99 % (Level 255)"},
        {"speed wins when louder", settings(true, 50), {60.0f, true, 128}, "55 % (60 km/h, Level 128)"},
        {"noise wins when louder", settings(true, 100), {12.0f, true, 200}, "80 % (12 km/h, Level 200)"},
        {"base 75: 55 + (25*90)/50", settings(true), {60.0f, false, 0, 75}, "100 % (60 km/h)"},
        {"base 60: 55 + (10*90)/50", settings(true), {60.0f, false, 0, 60}, "73 % (60 km/h)"},
        {"base 25: (25*55)/50 truncated", settings(true), {60.0f, false, 0, 25}, "27 % (60 km/h)"},
    };
    for (const auto& c : cases) {
        const VolumeChange change = computeVolume(c.settings, c.input, false);
        ASSERT_TRUE(change.m_bApplies) << c.legend;
        EXPECT_EQ(change.m_strLabel.toStdString(), c.label) << c.legend;
    }
}

TEST(VolumeRules, BaseVolumeAloneAppliesOnlyWhenForced) {
    const struct {
        const char* legend;
        VolumeInput input;
        bool bForce;
        uint32_t nWaveVolume;
        const char* label; // empty: nothing applies
    } cases[] = {
        {"not forced: nothing changes", {60.0f, false, 0, 75}, false, 0, ""},
        {"forced: base 75 -> 75*655.35", {60.0f, false, 0, 75}, true, 0xBFFFBFFF, "75 %"},
        {"forced: base 100 is full volume", {0.0f, false, 0, 100}, true, 0xFFFFFFFF, "100 %"},
        {"forced with sound off: silent", {0.0f, false, 0, 75, false}, true, 0, "0 %"},
    };
    for (const auto& c : cases) {
        const VolumeChange change = computeVolume(settings(false), c.input, c.bForce);
        EXPECT_EQ(change.m_bApplies, c.bForce) << c.legend;
        EXPECT_EQ(change.m_nWaveVolume, c.nWaveVolume) << c.legend;
        EXPECT_EQ(change.m_strLabel.toStdString(), c.label) << c.legend;
    }
}

} // namespace
