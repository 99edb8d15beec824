#include "platform/ToneSynth.h"

#include "platform/WavFile.h"

#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int kFadeSamples = ToneSynth::kSampleRate * 5 / 1000;

void appendSample(QByteArray& pcm, int16_t value) {
    char bytes[2];
    qToLittleEndian(value, bytes);
    pcm.append(bytes, 2);
}

void appendTone(QByteArray& pcm, const Tone& tone, double peak) {
    const int count = std::clamp(tone.m_nDurationMs, 0, 10000) * ToneSynth::kSampleRate / 1000;
    if (tone.m_nFrequencyHz <= 0) {
        pcm.append(QByteArray(count * 2, '\0'));
        return;
    }
    const double step =
        2 * std::numbers::pi * std::clamp(tone.m_nFrequencyHz, 20, 10000) / ToneSynth::kSampleRate;
    for (int i = 0; i < count; ++i) {
        const double fade = std::min({1.0, double(i) / kFadeSamples, double(count - 1 - i) / kFadeSamples});
        appendSample(pcm, static_cast<int16_t>(std::lround(peak * fade * std::sin(step * i))));
    }
}

} // namespace

QByteArray ToneSynth::renderPcm16(const QList<Tone>& tones, uint16_t amplitude) {
    const double peak = 32767.0 * amplitude / 65535.0;
    QByteArray pcm;
    for (const Tone& tone : tones)
        appendTone(pcm, tone, peak);
    return pcm;
}

QByteArray ToneSynth::wavFile(const QByteArray& pcm) {
    return WavFile::mono16(pcm, kSampleRate);
}
