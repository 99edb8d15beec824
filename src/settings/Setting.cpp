#include "settings/Setting.h"

#include "settings/CRegistryKey.h"

bool readSetting(CRegistryKey& key, const Setting<bool>& setting) {
    bool value = setting.defaultValue;
    if (!key.ReadFlag(setting.name(), value) && setting.bWriteBack) key.WriteFlag(setting.name(), value);
    return value;
}

uint8_t readSetting(CRegistryKey& key, const Setting<uint8_t>& setting) {
    uint8_t value = setting.defaultValue;
    if (!key.ReadByte(setting.name(), value) && setting.bWriteBack) key.WriteByte(setting.name(), value);
    return value;
}

int32_t readSetting(CRegistryKey& key, const Setting<int32_t>& setting) {
    uint32_t value = static_cast<uint32_t>(setting.defaultValue);
    if (!key.ReadDword(setting.name(), value) && setting.bWriteBack) key.WriteDword(setting.name(), value);
    return static_cast<int32_t>(value);
}

float readSetting(CRegistryKey& key, const Setting<float>& setting) {
    float value = setting.defaultValue;
    if (!key.ReadFloat(setting.name(), value) && setting.bWriteBack) key.WriteFloat(setting.name(), value);
    return value;
}

double readSetting(CRegistryKey& key, const Setting<double>& setting) {
    double value = setting.defaultValue;
    if (!key.ReadDouble(setting.name(), value) && setting.bWriteBack) key.WriteDouble(setting.name(), value);
    return value;
}

QString readSetting(CRegistryKey& key, const Setting<const char*>& setting) {
    QString value = QString::fromLatin1(setting.defaultValue);
    if (!key.ReadString(setting.name(), value) && setting.bWriteBack) key.WriteString(setting.name(), value);
    return value;
}
