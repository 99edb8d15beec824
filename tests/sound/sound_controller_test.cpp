#include "gps/GpsFix.h"
#include "gps/sound/SoundController.h"
#include "platform/NoiseMeter.h"
#include "platform/SoundOutput.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QFileInfo>
#include <gtest/gtest.h>
#include <optional>

namespace {

// A sound output that keeps, in order, the file names it was asked to play, and the last volume set.
class RecordingSound : public SoundOutput {
public:
    QStringList played; // file names without folder
    uint32_t nVolume = 0xFFFFFFFF;
    void playFile(const QString& hostPath) override { played << QFileInfo(hostPath).fileName(); }
    void playTones(const QList<Tone>& tones, uint16_t) override {
        played << QString("tones%1").arg(tones.size());
    }
    void setVolume(uint32_t volume) override { nVolume = volume; }
    uint32_t volume() const override { return nVolume; }
};

// A noise meter with a level set by the test.
class FixedNoise : public NoiseMeter {
public:
    int nLevel = 0;
    bool bRunning = false;
    void start() override { bRunning = true; }
    void stop() override { bRunning = false; }
    int level() const override { return bRunning ? nLevel : 0; }
};

// A controller over a recording output and a silent noise meter, in the settings of `root`.
struct Sounds {
    GpsFix fix;
    RecordingSound output;
    FixedNoise noise;
    std::optional<SoundController> controller;
    explicit Sounds(const TestRoot& root) { controller.emplace(output, noise, root.root(), fix); }
};

// When the document calls these hooks is tested with the document (tests/gps).
TEST(SoundController, PlaysTheAlertsThatAreOn) {
    const struct {
        const char* legend;
        bool bOn;
        const char* played;
    } cases[] = {
        {"all alerts off: nothing", false, ""},
        {"fix lost, back, receiver silent", true, "Infend.wav Infbeg.wav Lowbatt.wav"},
    };
    for (const auto& c : cases) {
        TestRoot root;
        for (const char* flag : {"NSSound", "SignalSound", "NoDataSound"})
            CRegistryKey().WriteFlag(flag, c.bOn);
        Sounds sounds(root);
        sounds.controller->loadSettings();
        sounds.controller->playNoFixSound();
        sounds.controller->playSignalSound();
        sounds.controller->playNoDataSound();
        EXPECT_EQ(sounds.output.played.join(' ').toStdString(), c.played) << c.legend;
    }
}

TEST(SoundController, FollowsTheSpeedOnEachValidEpoch) {
    TestRoot root;
    CRegistryKey key;
    key.WriteFlag("PlaySpeedSound", true);
    key.WriteFlag("SpeedVol", true);
    for (const char* name : {"30.wav", "50.wav"})
        writeFile(root.file(QString("My Documents/SpeedWaves/") + name), {});
    Sounds sounds(root);
    QStringList labels;
    sounds.controller->setVolumeLabelSink([&labels](const QString& label) { labels << label; });
    sounds.controller->loadSettings();
    for (float speed : {29.6f, 30.0f, 60.0f, 45.0f}) {
        sounds.fix.m_fSpeed = speed;
        sounds.controller->validEpoch(int(speed));
    }
    EXPECT_EQ(sounds.output.played.join(' ').toStdString(), "30.wav 50.wav 30.wav");
    EXPECT_EQ(labels.join('|').toStdString(),
              "10 % (0 km/h)|32 % (30 km/h)|32 % (30 km/h)|55 % (60 km/h)|43 % (45 km/h)");
    EXPECT_EQ(sounds.output.volume(), waveVolumeOf(43));
    EXPECT_EQ(key.GetDword("WaveVolume", 0), waveVolumeOf(43)) << "kept for the next start";
}

TEST(SoundController, StartsFromTheSettingsAndMeasuresNoiseWhileDynaSoundIsSet) {
    // Stored program volume 30 %, noise level 50.
    const std::tuple<const char*, int, const char*> cases[] = {
        {"DynaSound off: the stored volume is the base", 0, "30 %"},
        {"DynaSound on: measuring, neutral base", 40, "17 % (Level 50)"},
    };
    for (const auto& [legend, dynaSound, label] : cases) {
        TestRoot root;
        CRegistryKey key;
        key.WriteByte("DynaSound", uint8_t(dynaSound));
        key.WriteDword("WaveVolume", waveVolumeOf(30));
        Sounds sounds(root);
        sounds.noise.nLevel = 50;
        sounds.controller->loadSettings();
        EXPECT_EQ(sounds.controller->volumeLabel().toStdString(), label) << legend;
        EXPECT_EQ(sounds.noise.bRunning, dynaSound != 0) << legend;
        sounds.controller.reset();
        EXPECT_FALSE(sounds.noise.bRunning) << legend << ": stopped at the end";
    }
}

} // namespace
