#include "gps/sound/SoundSettings.h"
#include "gps/sound/SpeedSoundTable.h"
#include "gps/ui/CRecordSound.h"
#include "platform/WavFile.h"
#include "platform/audio/SoundRecorder.h"
#include "settings/CRegistryKey.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtEndian>
#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr int kRate = 8000;

// Half a second of a 440 Hz sine, 16-bit mono: what a microphone would have delivered.
QByteArray tone() {
    QByteArray out;
    for (int i = 0; i < kRate / 2; ++i) {
        char bytes[2];
        qToLittleEndian(int16_t(std::lround(16000 * std::sin(2 * M_PI * 440 * i / kRate))), bytes);
        out.append(bytes, 2);
    }
    return out;
}

// An input that hands the tone over once recording starts.
struct ToneInput {
    QBuffer buffer;
    ToneInput() {
        buffer.setData(tone());
        buffer.open(QIODevice::ReadOnly);
    }
    CRecordSound::Services services(QStringList* played = nullptr) {
        CRecordSound::Services s;
        s.hasInput = [] { return true; };
        s.startInput = [this](SoundRecorder& recorder) {
            QAudioFormat format;
            format.setSampleRate(kRate);
            format.setChannelCount(1);
            format.setSampleFormat(QAudioFormat::Int16);
            recorder.start(&buffer, format);
            Q_EMIT buffer.readyRead();
            return QString();
        };
        s.playFile = [played](const QString& path) {
            if (played) *played << path;
        };
        return s;
    }
};

} // namespace

TEST(RecordSound, SavesWhereTheAlertOrSpeedTableTakesItUp) {
    ensureApplication();
    struct Case {
        const char* legend;
        const char* alertFile; // relative to the root; nullptr: a speed band
        int speedKmh;
        const char* expected; // relative to the root; nullptr: not saved
    };
    const Case cases[] = {
        {"an alert's file", "sounds/nofix.wav", 0, "sounds/nofix.wav"},
        {"a speed band typed in, its folder made", nullptr, 87, "My Documents/SpeedWaves/87.wav"},
        {"an alert file in a folder that cannot be made", "blocked/sub/x.wav", 0, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        QFile(root.file("blocked")).open(QIODevice::WriteOnly); // a file where a folder would go
        CRegistryKey key;
        writeSetting(key, SoundSettings::kPlaySpeedSound, true);
        ToneInput input;
        QStringList played;
        CRecordSound dialog(c.alertFile ? root.file(c.alertFile) : QString(), input.services(&played));
        if (!c.alertFile) dialog.findChild<QSpinBox*>()->setValue(c.speedKmh);
        dialog.Record();
        dialog.Stop();
        dialog.Play();
        ASSERT_EQ(played.size(), 1);
        EXPECT_NE(played.first(), dialog.Destination()); // played back without touching the destination
        QSignalSpy saved(&dialog, &CRecordSound::saved);
        EXPECT_EQ(dialog.Save(), c.expected != nullptr) << dialog.StatusText().toStdString();
        if (!c.expected) {
            EXPECT_TRUE(dialog.StatusText().contains("blocked/sub")) << dialog.StatusText().toStdString();
            EXPECT_TRUE(saved.isEmpty());
            continue;
        }
        const QString path = root.file(c.expected);
        ASSERT_EQ(saved.size(), 1);
        EXPECT_EQ(QDir::cleanPath(saved.first().first().toString()), path);
        WavFile::Info info;
        ASSERT_EQ(WavFile::readInfo(path, info), QString());
        EXPECT_EQ(std::tuple(info.m_nRate, info.m_nChannels, info.m_nBits, info.m_dSeconds),
                  std::tuple(8000, 1, 16, 0.5));
        if (!c.alertFile) { // the speed table finds the band at once
            SpeedSoundTable table;
            table.load(key, root.root());
            EXPECT_EQ(table.speeds(), QList<int>{c.speedKmh});
            EXPECT_EQ(QDir::cleanPath(table.nextSound(c.speedKmh + 5)), path);
        }
    }
}

TEST(RecordSound, WithoutAnInputSaysSoAndOffersOnlyClosing) {
    ensureApplication();
    TestRoot root;
    CRecordSound::Services services;
    services.hasInput = [] { return false; };
    CRecordSound dialog(root.file("x.wav"), services);
    EXPECT_EQ(dialog.StatusText(), "Kein Audio-Eingang vorhanden: Aufnehmen ist nicht möglich.");
    const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
    ASSERT_EQ(buttons.size(), 1) << "only closing";
    dialog.Record();
    EXPECT_FALSE(dialog.Save());
    EXPECT_FALSE(QFile::exists(root.file("x.wav")));
}
