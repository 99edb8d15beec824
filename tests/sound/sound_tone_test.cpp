#include "gps/sound/DefaultAlertSounds.h"
#include "platform/ToneSynth.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QtEndian>
#include <gtest/gtest.h>

namespace {

// The samples of a WAV file as this project writes it (44-byte header, 16-bit mono).
QList<int16_t> samplesOf(const QByteArray& wav) {
    QList<int16_t> samples;
    for (qsizetype i = 44; i + 1 < wav.size(); i += 2)
        samples << qFromLittleEndian<int16_t>(wav.constData() + i);
    return samples;
}

// Frequency from the rising zero crossings between the first and the last one.
double measuredFrequency(const QList<int16_t>& samples) {
    int first = -1, last = -1, crossings = 0;
    for (int i = 1; i < samples.size(); ++i) {
        if (samples[i - 1] < 0 && samples[i] >= 0) {
            if (first < 0) first = i;
            last = i;
            ++crossings;
        }
    }
    return crossings < 2 ? 0 : (crossings - 1) * double(ToneSynth::kSampleRate) / (last - first);
}

TEST(ToneSynth, RendersTonesOfTheirFrequency) {
    const struct {
        const char* legend;
        Tone tone;
        int nSamples;
    } cases[] = {
        {"GoTo beep at the target", {2984, 500}, 11025},
        {"GoTo beep far away", {1000, 70}, 1543},
        {"low alert tone", {330, 400}, 8820},
        {"below hearing is raised to 20 Hz", {5, 1000}, 22050},
    };
    for (const auto& c : cases) {
        const QByteArray wav = ToneSynth::wavFile(ToneSynth::renderPcm16({c.tone}, 65535));
        ASSERT_EQ(wav.left(4), "RIFF") << c.legend;
        EXPECT_EQ(wav.mid(8, 8), "WAVEfmt ") << c.legend;
        EXPECT_EQ(qFromLittleEndian<uint32_t>(wav.constData() + 24), uint32_t(ToneSynth::kSampleRate))
            << c.legend;
        EXPECT_EQ(qFromLittleEndian<uint32_t>(wav.constData() + 40), uint32_t(c.nSamples * 2)) << c.legend;
        const QList<int16_t> samples = samplesOf(wav);
        ASSERT_EQ(samples.size(), c.nSamples) << c.legend;
        EXPECT_NEAR(measuredFrequency(samples), std::max(c.tone.m_nFrequencyHz, 20),
                    0.01 * c.tone.m_nFrequencyHz + 1)
            << c.legend;
        EXPECT_EQ(samples.first(), 0) << c.legend << ": fades in";
        EXPECT_GT(*std::max_element(samples.begin(), samples.end()), 32000) << c.legend;
    }
}

TEST(DefaultAlertSounds, WritesMissingFilesOnly) {
    TestRoot root;
    writeFile(root.file("windows/Infbeg.wav"), "mine");
    ASSERT_TRUE(DefaultAlertSounds::install(root.root()));
    for (const char* name : {"Infend.wav", "Infbeg.wav", "Lowbatt.wav"}) {
        const QByteArray generated = DefaultAlertSounds::wavOf(QString("\\windows\\") + name);
        EXPECT_GT(generated.size(), 44 + 22050) << name << ": half a second or more";
        EXPECT_EQ(readFile(root.file(QString("windows/") + name)),
                  QString(name) == "Infbeg.wav" ? "mine" : generated)
            << name;
    }
    EXPECT_NE(DefaultAlertSounds::wavOf("\\windows\\Infend.wav"),
              DefaultAlertSounds::wavOf("\\windows\\Infbeg.wav"));
}

} // namespace
