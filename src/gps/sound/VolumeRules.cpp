#include "gps/sound/VolumeRules.h"

#include <algorithm>

namespace {

// The noise share of the range: level 256 at weight 100 adds the whole range.
int noiseBoost(const VolumeSettings& settings, const VolumeInput& input, int range) {
    const int product = std::clamp(input.m_nNoiseLevel, 0, 255) * settings.m_nDynaSound * range;
    return -static_cast<int>(product * -3.90625e-5);
}

// MinVol plus the speed share of the range, truncated in single precision; a speed beyond any
// sense saturates rather than overflowing the integer.
int speedVolume(const VolumeSettings& settings, float speed, int range) {
    const float fraction = settings.m_nMaxVolSpeed > 0 ? speed / float(settings.m_nMaxVolSpeed) : 1.0f;
    const float share = std::clamp(fraction * float(range), -1e6f, 1e6f);
    return settings.m_nMinVol + static_cast<int>(share);
}

QString labelOf(int percent, const VolumeSettings& settings, const VolumeInput& input) {
    if (settings.m_bSpeedVol && input.m_bNoiseMeasured)
        return QString::asprintf("%d %% (%.0f km/h, Level %d)", percent, double(input.m_fSpeed),
                                 input.m_nNoiseLevel);
    if (settings.m_bSpeedVol) return QString::asprintf("%d %% (%.0f km/h)", percent, double(input.m_fSpeed));
    return QString::asprintf("%d %% (Level %d)", percent, input.m_nNoiseLevel);
}

} // namespace

uint32_t waveVolumeOf(double percent) {
    const uint32_t channel = static_cast<uint32_t>(std::clamp(percent, 0.0, 100.0) * 655.35);
    return (channel << 16) | channel;
}

VolumeChange computeVolume(const VolumeSettings& settings, const VolumeInput& input, bool bForce) {
    if (!settings.m_bSpeedVol && !input.m_bNoiseMeasured) {
        if (!bForce) return {};
        // Muting works here too, although the base volume alone would ignore it.
        const int percent = input.m_bSoundOn ? std::clamp(input.m_nBaseVolume, 0, 100) : 0;
        return {true, percent, waveVolumeOf(percent), QString::asprintf("%d %%", percent)};
    }
    const int range = settings.m_nMaxVol - settings.m_nMinVol;
    const int noiseVolume = settings.m_nMinVol + noiseBoost(settings, input, range);
    int volume = noiseVolume;
    if (settings.m_bSpeedVol) {
        volume = speedVolume(settings, input.m_fSpeed, range);
        if (input.m_bNoiseMeasured) volume = std::max(volume, noiseVolume);
    }

    const int base = input.m_nBaseVolume;
    if (base > 50) volume += ((base - 50) * (100 - settings.m_nMinVol)) / 50;
    if (base < 50) volume = (base * volume) / 50;
    if (!input.m_bSoundOn) volume = 0;
    // A minimum above the maximum could drive the volume below zero; silence is the floor.
    volume = std::clamp(volume, 0, 100);
    return {true, volume, waveVolumeOf(volume), labelOf(volume, settings, input)};
}

int startBaseVolume(const VolumeSettings& settings, uint32_t storedWaveVolume) {
    if (settings.m_bSpeedVol || settings.m_nDynaSound != 0) return kNeutralBaseVolume;
    return int(storedWaveVolume & 0xFFFF) / 655;
}
