#include "gps/sound/VolumeRules.h"

#include <gtest/gtest.h>

namespace {

VolumeSettings speedVolume(int minVol = 10, int maxVol = 100, int maxVolSpeed = 120) {
    VolumeSettings settings;
    settings.m_bSpeedVol = true;
    settings.m_nMinVol = minVol;
    settings.m_nMaxVol = maxVol;
    settings.m_nMaxVolSpeed = maxVolSpeed;
    return settings;
}

VolumeSettings noiseVolume(int dynaSound, bool bSpeedVol = false) {
    VolumeSettings settings = speedVolume();
    settings.m_bSpeedVol = bSpeedVol;
    settings.m_nDynaSound = dynaSound;
    return settings;
}

struct Case {
    const char* legend;
    VolumeSettings settings;
    VolumeInput input;
    int nPercent;
    const char* label;
};

void expectVolumes(const Case& c) {
    const VolumeChange change = computeVolume(c.settings, c.input, false);
    ASSERT_TRUE(change.m_bApplies) << c.legend;
    EXPECT_EQ(change.m_nPercent, c.nPercent) << c.legend;
    EXPECT_EQ(change.m_nWaveVolume, waveVolumeOf(c.nPercent)) << c.legend;
    EXPECT_EQ(change.m_strLabel.toStdString(), c.label) << c.legend;
}

TEST(VolumeRules, FollowsTheSpeed) {
    const Case cases[] = {
        {"standing: the minimum", speedVolume(), {0.0f}, 10, "10 % (0 km/h)"},
        {"half of MaxVolSpeed: half the range", speedVolume(), {60.0f}, 55, "55 % (60 km/h)"},
        {"share truncated: 59.9/120*90 = 44.925", speedVolume(), {59.9f}, 54, "54 % (60 km/h)"},
        {"beyond MaxVolSpeed capped at 100", speedVolume(), {200.0f}, 100, "100 % (200 km/h)"},
        {"MaxVolSpeed 0 gives the maximum at once", speedVolume(10, 80, 0), {5.0f}, 80, "80 % (5 km/h)"},
        {"minimum above maximum falls with speed, not below 0",
         speedVolume(90, 0),
         {400.0f},
         0,
         "0 % (400 km/h)"},
        {"sound off mutes", speedVolume(), {60.0f, false, 0, 50, false}, 0, "0 % (60 km/h)"},
    };
    for (const Case& c : cases)
        expectVolumes(c);
}

TEST(VolumeRules, FollowsTheNoise) {
    const Case cases[] = {
        {"noise alone: 10 + trunc(128*50*90/25600) = 32",
         noiseVolume(50),
         {0.0f, true, 128},
         32,
         "32 % (Level 128)"},
        {"quiet: the minimum", noiseVolume(50), {80.0f, true, 0}, 10, "10 % (Level 0)"},
        {"level 256 at weight 100 would add the whole range",
         noiseVolume(100),
         {0.0f, true, 255},
         99,
         "99 % (Level 255)"},
        {"speed wins when louder",
         noiseVolume(50, true),
         {60.0f, true, 128},
         55,
         "55 % (60 km/h, Level 128)"},
        {"noise wins when louder",
         noiseVolume(100, true),
         {12.0f, true, 200},
         80,
         "80 % (12 km/h, Level 200)"},
    };
    for (const Case& c : cases)
        expectVolumes(c);
}

TEST(VolumeRules, ScalesByTheBaseVolume) {
    const Case cases[] = {
        {"neutral 50", speedVolume(), {60.0f, false, 0, 50}, 55, "55 % (60 km/h)"},
        {"75: 55 + (25*90)/50", speedVolume(), {60.0f, false, 0, 75}, 100, "100 % (60 km/h)"},
        {"60: 55 + (10*90)/50", speedVolume(), {60.0f, false, 0, 60}, 73, "73 % (60 km/h)"},
        {"25: (25*55)/50 truncated", speedVolume(), {60.0f, false, 0, 25}, 27, "27 % (60 km/h)"},
        {"0 silences", speedVolume(), {60.0f, false, 0, 0}, 0, "0 % (60 km/h)"},
    };
    for (const Case& c : cases)
        expectVolumes(c);
}

TEST(VolumeRules, BaseVolumeAloneAppliesOnlyWhenForced) {
    const struct {
        const char* legend;
        VolumeInput input;
        bool bForce;
        bool bApplies;
        uint32_t nWaveVolume;
        const char* label;
    } cases[] = {
        {"not forced: nothing changes", {60.0f, false, 0, 75}, false, false, 0, ""},
        {"forced: base 75 -> 75*655.35", {60.0f, false, 0, 75}, true, true, 0xBFFFBFFF, "75 %"},
        {"forced: base 100 is full volume", {0.0f, false, 0, 100}, true, true, 0xFFFFFFFF, "100 %"},
        {"forced with sound off: silent", {0.0f, false, 0, 75, false}, true, true, 0, "0 %"},
    };
    for (const auto& c : cases) {
        const VolumeChange change = computeVolume(VolumeSettings{}, c.input, c.bForce);
        EXPECT_EQ(change.m_bApplies, c.bApplies) << c.legend;
        EXPECT_EQ(change.m_nWaveVolume, c.nWaveVolume) << c.legend;
        EXPECT_EQ(change.m_strLabel.toStdString(), c.label) << c.legend;
    }
}

TEST(VolumeRules, StartsTheBaseVolume) {
    const struct {
        const char* legend;
        VolumeSettings settings;
        uint32_t nStored;
        int nBase;
    } cases[] = {
        {"neither rule: stored volume / 655", VolumeSettings{}, 0x7FFF7FFF, 50},
        {"neither rule, full volume", VolumeSettings{}, 0xFFFFFFFF, 100},
        {"neither rule, only the low channel counts", VolumeSettings{}, 0xFFFF0000, 0},
        {"speed volume: neutral", speedVolume(), 0x00000000, 50},
        {"noise volume: neutral", noiseVolume(20), 0xFFFFFFFF, 50},
    };
    for (const auto& c : cases)
        EXPECT_EQ(startBaseVolume(c.settings, c.nStored), c.nBase) << c.legend;
}

} // namespace
