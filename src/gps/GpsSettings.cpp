#include "gps/GpsSettings.h"

#include "gps/GpsFix.h"
#include "platform/DeviceClock.h"
#include "shell/settings/CRegistryKey.h"

namespace {

QString nameOf(const char* pszName) {
    return QString::fromLatin1(pszName);
}

} // namespace

bool readSetting(CRegistryKey& key, const GpsSetting<bool>& setting) {
    bool value = setting.defaultValue;
    if (!key.ReadFlag(nameOf(setting.pszName), value) && setting.bWriteBack)
        key.WriteFlag(nameOf(setting.pszName), setting.defaultValue);
    return value;
}

int32_t readSetting(CRegistryKey& key, const GpsSetting<int32_t>& setting) {
    uint32_t value = static_cast<uint32_t>(setting.defaultValue);
    if (!key.ReadDword(nameOf(setting.pszName), value) && setting.bWriteBack)
        key.WriteDword(nameOf(setting.pszName), value);
    return static_cast<int32_t>(value);
}

float readSetting(CRegistryKey& key, const GpsSetting<float>& setting) {
    float value = setting.defaultValue;
    if (!key.ReadFloat(nameOf(setting.pszName), value) && setting.bWriteBack)
        key.WriteFloat(nameOf(setting.pszName), setting.defaultValue);
    return value;
}

double readSetting(CRegistryKey& key, const GpsSetting<double>& setting) {
    double value = setting.defaultValue;
    if (!key.ReadDouble(nameOf(setting.pszName), value) && setting.bWriteBack)
        key.WriteDouble(nameOf(setting.pszName), setting.defaultValue);
    return value;
}

void loadGpsFixStart(GpsFix& fix, const DeviceClock& clock) {
    CRegistryKey key;
    readSetting(key, GpsSettings::kCheckCheckSum);
    fix.m_nAltitudeOffset = readSetting(key, GpsSettings::kAltitudeOffset);
    fix.m_bAutoAltitudeOffset = readSetting(key, GpsSettings::kAutoAltitudeOffset);
    fix.m_fThresholdHeading = readSetting(key, GpsSettings::kThresholdHeading);
    fix.m_bSetSystemTime = readSetting(key, GpsSettings::kSetSystemTime);
    fix.m_dPosLong = readSetting(key, GpsSettings::kLastLong);
    fix.m_dPosLat = readSetting(key, GpsSettings::kLastLat);
    fix.m_tFixTime = clock.localNow();
    fix.m_tPrevFixTime = fix.m_tFixTime - 86400;
    fix.m_nValid = 0;
    fix.m_nPendingChanges = 0;
}
