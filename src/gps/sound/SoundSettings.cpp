#include "gps/sound/SoundSettings.h"

#include "shell/settings/CRegistryKey.h"

uint8_t readSetting(CRegistryKey& key, const GpsSetting<uint8_t>& setting) {
    const QString name = QString::fromLatin1(setting.pszName);
    uint8_t value = setting.defaultValue;
    if (!key.ReadByte(name, value) && setting.bWriteBack) key.WriteByte(name, value);
    return value;
}

VolumeSettings VolumeSettings::read(CRegistryKey& key) {
    VolumeSettings settings;
    settings.m_bSpeedVol = readSetting(key, SoundSettings::kSpeedVol);
    settings.m_nMaxVolSpeed = readSetting(key, SoundSettings::kMaxVolSpeed);
    settings.m_nMaxVol = readSetting(key, SoundSettings::kMaxVol);
    settings.m_nMinVol = readSetting(key, SoundSettings::kMinVol);
    settings.m_nDynaSound = readSetting(key, SoundSettings::kDynaSound);
    return settings;
}
