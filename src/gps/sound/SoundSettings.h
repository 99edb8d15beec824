#pragma once

#include "settings/Setting.h"

#include <QString>
#include <cstdint>

// The settings of the alert sounds, the speed sounds and the volume under SOFTWARE\Omvale\Fendix,
// declared once. Paths are the handheld's own (mapped through the device root) or host paths.
namespace SoundSettings {
// The three alerts: a flag and a WAV file each.
inline constexpr Setting<bool> kNoFixSound{"NSSound", false, false};
inline constexpr Setting<const char*> kNoFixSoundWav{"NSSoundWav", "\\windows\\Infend.wav", false};
inline constexpr Setting<bool> kSignalSound{"SignalSound", false, false};
inline constexpr Setting<const char*> kSignalSoundWav{"SignalSoundWav", "\\windows\\Infbeg.wav", false};
inline constexpr Setting<bool> kNoDataSound{"NoDataSound", false, false};
inline constexpr Setting<const char*> kNoDataSoundWav{"NoDataSoundWav", "\\windows\\Lowbatt.wav", false};

// Speed sounds: files "<SpeedWaves>/<n>.wav" for speeds n = 0..399 km/h.
inline constexpr Setting<bool> kPlaySpeedSound{"PlaySpeedSound", false, false};
inline constexpr Setting<const char*> kSpeedWaves{"SpeedWaves", "/My Documents/SpeedWaves/", false};

// Volume following the speed and the ambient noise.
inline constexpr Setting<bool> kSpeedVol{"SpeedVol", false, false};
inline constexpr Setting<int32_t> kMaxVolSpeed{"MaxVolSpeed", 120, false}; // km/h of the maximum
inline constexpr Setting<uint8_t> kMaxVol{"MaxVol", 100, false};           // percent at that speed
inline constexpr Setting<uint8_t> kMinVol{"MinVol", 10, false};            // percent when standing
inline constexpr Setting<uint8_t> kDynaSound{"DynaSound", 0, false};       // noise weight; 0 = off
// The program's last output volume (left in the low 16 bits, right in the high), kept across runs
// as the handheld's system kept it; the base volume starts from it when neither rule above is on.
inline constexpr Setting<int32_t> kWaveVolume{"WaveVolume", -1, false};
} // namespace SoundSettings

// The volume settings as read at once.
struct VolumeSettings {
    bool m_bSpeedVol = SoundSettings::kSpeedVol.m_default;
    int m_nMaxVolSpeed = SoundSettings::kMaxVolSpeed.m_default; // km/h
    int m_nMaxVol = SoundSettings::kMaxVol.m_default;           // percent 0..255 as stored
    int m_nMinVol = SoundSettings::kMinVol.m_default;           // percent 0..255 as stored
    int m_nDynaSound = SoundSettings::kDynaSound.m_default;     // 0..255

    static VolumeSettings read(CRegistryKey& key);
};
