#include "RecordingSound.h"
#include "gps/CFendixDoc.h"
#include "gps/NmeaLineBuilder.h"
#include "gps/sound/SoundController.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

// A $GPGGA of second `second`, with or without fix, 10 m further north each second.
QByteArray gga(int second, bool bFix) {
    return NmeaLineBuilder("$GPGGA")
        .text(QString::asprintf("1200%02d,4806.%04d,N,01130.0000,E,%c,08,0.9,500.0,M,47.0,M,,", second,
                                54 * second, bFix ? '1' : '0')
                  .toLatin1())
        .finish();
}

// Runs the document over a lost and regained fix and a silent receiver; returns what was played.
QStringList playLostFixAndSilence(bool bAlertsOn) {
    TestRoot root;
    CRegistryKey key;
    for (const char* flag : {"NSSound", "SignalSound", "NoDataSound"})
        key.WriteFlag(flag, bAlertsOn);
    key.WriteDword("AutoReconnect", 1);
    FixedDeviceClock clock(1779451200);
    CFendixDoc doc(root.root(), clock);
    doc.LoadSettings();
    RecordingSound output;
    FixedNoise noise;
    SoundController sounds(output, noise, root.root(), doc.Fix());
    sounds.loadSettings();
    doc.SetAlertHooks(&sounds);
    doc.SetSourceRestart([] {});
    for (int second = 0; second < 8; ++second) {
        const QByteArray line = gga(second, second < 2 || second > 4);
        doc.HandleSentence(line.constData(), int(line.size()));
    }
    for (int tick = 0; tick < 4; ++tick)
        doc.OnTick();
    return output.played;
}

TEST(SoundController, PlaysTheAlertsThatAreOn) {
    const struct {
        const char* legend;
        bool bOn;
        const char* played;
    } cases[] = {
        {"all alerts off: nothing, whatever happens to the fix", false, ""},
        {"fix lost, back, receiver silent", true, "Infend.wav Infbeg.wav Lowbatt.wav"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(playLostFixAndSilence(c.bOn).join(' ').toStdString(), c.played) << c.legend;
}

TEST(SoundController, FollowsTheSpeedOnEachValidEpoch) {
    TestRoot root;
    CRegistryKey key;
    key.WriteFlag("PlaySpeedSound", true);
    key.WriteFlag("SpeedVol", true);
    for (const char* name : {"30.wav", "50.wav"}) {
        QFile file(root.file(QString("My Documents/SpeedWaves/") + name));
        QDir().mkpath(root.file("My Documents/SpeedWaves"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    GpsFix fix;
    RecordingSound output;
    FixedNoise noise;
    SoundController sounds(output, noise, root.root(), fix);
    QStringList labels;
    sounds.setVolumeLabelSink([&labels](const QString& label) { labels << label; });
    sounds.loadSettings();
    for (float speed : {29.6f, 30.0f, 60.0f, 45.0f}) {
        fix.m_fSpeed = speed;
        sounds.validEpoch(int(speed));
    }
    EXPECT_EQ(output.played.join(' ').toStdString(), "30.wav 50.wav 30.wav");
    EXPECT_EQ(labels.join('|').toStdString(),
              "10 % (0 km/h)|32 % (30 km/h)|32 % (30 km/h)|55 % (60 km/h)|43 % (45 km/h)");
    EXPECT_EQ(output.volume(), waveVolumeOf(43));
    uint32_t stored = 0;
    EXPECT_TRUE(key.ReadDword("WaveVolume", stored) && stored == waveVolumeOf(43))
        << "kept for the next start";
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
        GpsFix fix;
        RecordingSound output;
        FixedNoise noise;
        noise.nLevel = 50;
        {
            SoundController sounds(output, noise, root.root(), fix);
            sounds.loadSettings();
            EXPECT_EQ(sounds.volumeLabel().toStdString(), label) << legend;
            EXPECT_EQ(noise.bRunning, dynaSound != 0) << legend;
        }
        EXPECT_FALSE(noise.bRunning) << legend << ": stopped at the end";
    }
}

} // namespace
