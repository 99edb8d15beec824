#pragma once

#include "platform/SoundOutput.h"

#include <QByteArray>
#include <QList>

// Renders tone sequences as sound samples, for the tone generator and the project's own alert files.
namespace ToneSynth {
inline constexpr int kSampleRate = 22050; // Hz
// Signed 16-bit little-endian mono samples at kSampleRate: a sine per tone with 5 ms fades at
// both ends (no clicks), silence for pauses. `amplitude` 0..65535 is the peak (65535 = full scale).
// Frequencies are clamped to 20..10000 Hz and durations to 0..10000 ms.
QByteArray renderPcm16(const QList<Tone>& tones, uint16_t amplitude);
// A complete WAV file (RIFF, PCM, 16-bit mono, kSampleRate) around `pcm`.
QByteArray wavFile(const QByteArray& pcm);
} // namespace ToneSynth
