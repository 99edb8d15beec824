#pragma once

#include <QList>
#include <QString>
#include <cstdint>

// One note of a generated tone sequence; a frequency of 0 is a pause of that length.
struct Tone {
    int m_nFrequencyHz = 0; // 0 or 20..20000
    int m_nDurationMs = 0;
};

// The program's own audio output: what the handheld did with sndPlaySound (asynchronous), its
// tone generator and waveOutSetVolume. Implementations never block and never report errors:
// without an audio device everything is silent.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;

    // Starts a WAV file (host path) and returns at once; a sound that is playing goes on. A missing
    // or unreadable file plays nothing (no default sound instead).
    virtual void playFile(const QString& hostPath) = 0;
    // Starts a generated tone sequence and returns at once. `amplitude` 0..65535 scales the tones
    // (65535 = full scale) before the program volume applies.
    virtual void playTones(const QList<Tone>& tones, uint16_t amplitude) = 0;
    // The program's own volume in waveOutSetVolume form: left channel 0..65535 in the low 16 bits,
    // right channel in the high 16 bits.
    virtual void setVolume(uint32_t volume) = 0;
    virtual uint32_t volume() const = 0;
};
