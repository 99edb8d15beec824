#include "platform/ToneSynth.h"

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

void appendLe32(QByteArray& out, uint32_t value) {
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

void appendLe16(QByteArray& out, uint16_t value) {
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
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
    constexpr uint16_t kChannels = 1;
    constexpr uint16_t kBitsPerSample = 16;
    constexpr uint16_t kBlockAlign = kChannels * kBitsPerSample / 8;
    QByteArray wav("RIFF");
    appendLe32(wav, 36 + uint32_t(pcm.size()));
    wav.append("WAVEfmt ");
    appendLe32(wav, 16);
    appendLe16(wav, 1); // PCM
    appendLe16(wav, kChannels);
    appendLe32(wav, kSampleRate);
    appendLe32(wav, kSampleRate * kBlockAlign);
    appendLe16(wav, kBlockAlign);
    appendLe16(wav, kBitsPerSample);
    wav.append("data");
    appendLe32(wav, uint32_t(pcm.size()));
    wav.append(pcm);
    return wav;
}
