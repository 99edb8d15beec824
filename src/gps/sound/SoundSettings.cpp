#include "gps/sound/SoundSettings.h"

#include "settings/CRegistryKey.h"

VolumeSettings VolumeSettings::read(CRegistryKey& key) {
    VolumeSettings settings;
    settings.m_bSpeedVol = readSetting(key, SoundSettings::kSpeedVol);
    settings.m_nMaxVolSpeed = readSetting(key, SoundSettings::kMaxVolSpeed);
    settings.m_nMaxVol = readSetting(key, SoundSettings::kMaxVol);
    settings.m_nMinVol = readSetting(key, SoundSettings::kMinVol);
    settings.m_nDynaSound = readSetting(key, SoundSettings::kDynaSound);
    return settings;
}
