#pragma once

#include <QString>
#include <cstdint>

class CRegistryKey;

// A setting under SOFTWARE\Omvale\Fendix: its value name, its default and whether a missing value
// is written back with the default at once. Each subsystem declares its settings once as these,
// and code reads them only through readSetting, so a default is never typed twice.
template <typename T> struct Setting {
    const char* pszName;
    T defaultValue;
    bool bWriteBack;

    QString name() const { return QString::fromLatin1(pszName); }
};

// The stored value, or the default when it is missing (written back when the setting says so).
bool readSetting(CRegistryKey& key, const Setting<bool>& setting);           // 1-byte flag
uint8_t readSetting(CRegistryKey& key, const Setting<uint8_t>& setting);     // 1-byte number
int32_t readSetting(CRegistryKey& key, const Setting<int32_t>& setting);     // 32-bit integer
float readSetting(CRegistryKey& key, const Setting<float>& setting);         // "%f" text
double readSetting(CRegistryKey& key, const Setting<double>& setting);       // "%f" text
QString readSetting(CRegistryKey& key, const Setting<const char*>& setting); // string
