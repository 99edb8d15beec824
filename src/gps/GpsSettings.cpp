#include "gps/GpsSettings.h"

#include "gps/GpsFix.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"

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
