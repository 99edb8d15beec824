#include "platform/audio/NoiseLevel.h"
#include "platform/audio/QtSoundOutput.h"
#include "support/CoreApplication.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace {

TEST(NoiseLevel, CountsQuarterDecibels) {
    const struct {
        const char* legend;
        double amplitude; // of a sine, full scale 1
        int nLevel;
    } cases[] = {
        {"silence", 0.0, 0},
        {"-64 dBFS rms and below: 0", 0.0005, 0},
        {"full-scale sine: -3.01 dBFS", 1.0, 244},
        {"-20 dB: 20 dB lower", 0.1, 164},
        {"-40 dB", 0.01, 84},
    };
    for (const auto& c : cases) {
        NoiseLevel level;
        for (int i = 0; i < 4000; ++i)
            level.add(float(c.amplitude * std::sin(2 * std::numbers::pi * i / 40)));
        EXPECT_EQ(level.level(), c.nLevel) << c.legend;
    }
    EXPECT_EQ(NoiseLevel().level(), 0) << "no samples";
}

TEST(QtSoundOutput, TakesTheLouderChannelAndPlaysNothingMissing) {
    ensureCoreApplication();
    const std::pair<uint32_t, float> cases[] = {
        {0xFFFFFFFF, 1.0f}, {0, 0.0f}, {0x7FFF7FFF, 32767 / 65535.0f}, {0x0000FFFF, 1.0f}};
    for (const auto& [volume, linear] : cases)
        EXPECT_FLOAT_EQ(QtSoundOutput::linearVolume(volume), linear) << volume;
    QtSoundOutput output;
    output.playFile("/nonexistent/folder/30.wav");
    EXPECT_EQ(output.playingCount(), 0) << "a missing file plays nothing";
}

} // namespace
