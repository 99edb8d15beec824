#pragma once

#include "gps/sound/SoundSettings.h"

#include <QString>
#include <cstdint>

// The base volume (percent) at which neither speed nor noise raises or lowers the volume.
inline constexpr int kNeutralBaseVolume = 50;

// What the volume depends on besides the settings.
struct VolumeInput {
    float m_fSpeed = 0;                     // km/h
    bool m_bNoiseMeasured = false;          // the noise measurement runs ("DynaSound" non-zero)
    int m_nNoiseLevel = 0;                  // 0..255, see NoiseMeter
    int m_nBaseVolume = kNeutralBaseVolume; // percent
    bool m_bSoundOn = true;
};

// The outcome of one volume update.
struct VolumeChange {
    bool m_bApplies = false;    // false: volume and label stay as they are
    int m_nPercent = 0;         // 0..100
    uint32_t m_nWaveVolume = 0; // for SoundOutput::setVolume, the same for both channels
    QString m_strLabel;         // "55 % (60 km/h)" ...
};

// The volume from speed, noise and base volume; without speed volume and noise measurement only a
// forced update applies the base volume.
VolumeChange computeVolume(const VolumeSettings& settings, const VolumeInput& input, bool bForce);

// The base volume at start: neutral 50 when the volume follows speed or noise, else the stored
// program volume (low 16 bits, 0..65535) in percent.
int startBaseVolume(const VolumeSettings& settings, uint32_t storedWaveVolume);

// Both channels of a percent volume (0..100) in SoundOutput::setVolume form.
uint32_t waveVolumeOf(double percent);
