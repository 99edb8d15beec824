#include "platform/WavFile.h"
#include "platform/audio/SoundRecorder.h"
#include "support/CoreApplication.h"

#include <QBuffer>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtEndian>
#include <cmath>
#include <gtest/gtest.h>

namespace {

// `seconds` of a sine of `hz` in every channel, in `format`'s sample type.
QByteArray tone(const QAudioFormat& format, double hz, double seconds) {
    QByteArray out;
    const int frames = int(seconds * format.sampleRate());
    for (int i = 0; i < frames; ++i) {
        const double value = 0.5 * std::sin(2 * M_PI * hz * i / format.sampleRate());
        for (int c = 0; c < format.channelCount(); ++c) {
            if (format.sampleFormat() == QAudioFormat::Float) {
                const float f = float(value);
                out.append(reinterpret_cast<const char*>(&f), sizeof f);
            } else {
                char bytes[2];
                qToLittleEndian(int16_t(std::lround(value * 32767)), bytes);
                out.append(bytes, 2);
            }
        }
    }
    return out;
}

// sox (a test oracle) tells the length and the rough frequency of a file.
bool soxStat(const QString& path, double& seconds, double& hz) {
    QProcess sox;
    sox.start("sox", {path, "-n", "stat"});
    if (!sox.waitForFinished(10000) || sox.exitCode() != 0) return false;
    const QString text = QString::fromUtf8(sox.readAllStandardError());
    const auto length = QRegularExpression(R"(Length \(seconds\):\s+([\d.]+))").match(text);
    const auto frequency = QRegularExpression(R"(Rough\s+frequency:\s+(\d+))").match(text);
    seconds = length.captured(1).toDouble();
    hz = frequency.captured(1).toDouble();
    return length.hasMatch() && frequency.hasMatch();
}

TEST(SoundRecord, WritesA16BitMonoWavOfWhatTheInputDelivered) {
    if (QStandardPaths::findExecutable("sox").isEmpty()) GTEST_SKIP() << "sox missing";
    ensureCoreApplication();
    struct Case {
        const char* legend;
        int rate, channels;
        QAudioFormat::SampleFormat sampleFormat;
        double hz, seconds;
    } cases[] = {
        {"16-bit mono", 16000, 1, QAudioFormat::Int16, 440, 1.0},
        {"float stereo", 48000, 2, QAudioFormat::Float, 1000, 0.5},
    };
    QTemporaryDir dir;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        QAudioFormat format;
        format.setSampleRate(c.rate);
        format.setChannelCount(c.channels);
        format.setSampleFormat(c.sampleFormat);
        QBuffer input;
        input.setData(tone(format, c.hz, c.seconds));
        input.open(QIODevice::ReadOnly);
        SoundRecorder recorder;
        int loudest = 0;
        QObject::connect(&recorder, &SoundRecorder::levelChanged,
                         [&](int level) { loudest = std::max(loudest, level); });
        recorder.start(&input, format);
        Q_EMIT input.readyRead();
        recorder.stop();
        const QString path = dir.filePath(QString::fromLatin1(c.legend) + ".wav");
        ASSERT_EQ(recorder.save(path), QString());
        WavFile::Info info;
        ASSERT_EQ(WavFile::readInfo(path, info), QString());
        EXPECT_EQ(info.m_nChannels, 1);
        EXPECT_EQ(info.m_nBits, 16);
        EXPECT_EQ(info.m_nRate, c.rate);
        double seconds = 0, hz = 0;
        ASSERT_TRUE(soxStat(path, seconds, hz));
        EXPECT_NEAR(seconds, c.seconds, 0.001);
        EXPECT_NEAR(hz, c.hz, c.hz * 0.02);
        // A sine of half full scale: -9 dBFS RMS, so about 4 * (64 - 9) on the meter.
        EXPECT_NEAR(loudest, 220, 8);
    }
}

} // namespace
