#include "platform/audio/NoiseLevel.h"
#include "platform/audio/QtNoiseMeter.h"
#include "platform/audio/QtSoundOutput.h"

#include <QCoreApplication>
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

TEST(QtSoundOutput, KeepsTheProgramVolumeAndPlaysNothingMissing) {
    int argc = 1;
    char name[] = "sound_test";
    char* argv[] = {name, nullptr};
    QCoreApplication app(argc, argv);
    QtSoundOutput output;
    const struct {
        const char* legend;
        uint32_t nVolume;
        float fLinear;
    } cases[] = {
        {"full", 0xFFFFFFFF, 1.0f},
        {"silent", 0, 0.0f},
        {"half", 0x7FFF7FFF, 32767 / 65535.0f},
        {"the louder channel counts", 0x0000FFFF, 1.0f},
    };
    for (const auto& c : cases) {
        output.setVolume(c.nVolume);
        EXPECT_EQ(output.volume(), c.nVolume) << c.legend;
        EXPECT_FLOAT_EQ(QtSoundOutput::linearVolume(c.nVolume), c.fLinear) << c.legend;
    }
    output.playFile("/nonexistent/folder/30.wav");
    EXPECT_EQ(output.playingCount(), 0) << "a missing file plays nothing";
    QtNoiseMeter meter;
    EXPECT_EQ(meter.level(), 0) << "not measuring";
    meter.stop();
    EXPECT_FALSE(meter.isMeasuring());
}

} // namespace
