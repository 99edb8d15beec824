#pragma once

#include <cstdint>

class CRegistryKey;
struct GpsFix;
class DeviceClock;

// A setting of the GPS subsystem under SOFTWARE\Omvale\Fendix: its value name, its default and
// whether a missing value is written back with the default at once.
template <typename T> struct GpsSetting {
    const char* pszName;
    T defaultValue;
    bool bWriteBack;
};

// Every GPS setting, declared once; code reads them only through these.
namespace GpsSettings {
// Read and written back, but a "*" checksum is compared whatever it says: that is the behaviour
// users of older logs rely on.
inline constexpr GpsSetting<bool> kCheckCheckSum{"CheckCheckSum", true, true};
inline constexpr GpsSetting<int32_t> kAltitudeOffset{"AltitudeOffset", -48, false}; // metres
inline constexpr GpsSetting<bool> kAutoAltitudeOffset{"AutoAltitudeOffset", true, false};
inline constexpr GpsSetting<float> kThresholdHeading{"ThresholdHeading", 2.0f, true}; // km/h
inline constexpr GpsSetting<bool> kSetSystemTime{"SetSystemTime", true, true};
// The position saved at shutdown (degrees); without one the run starts at 0, 0.
inline constexpr GpsSetting<double> kLastLong{"LastLong", 0.0, false};
inline constexpr GpsSetting<double> kLastLat{"LastLat", 0.0, false};
} // namespace GpsSettings

bool readSetting(CRegistryKey& key, const GpsSetting<bool>& setting);
int32_t readSetting(CRegistryKey& key, const GpsSetting<int32_t>& setting);
float readSetting(CRegistryKey& key, const GpsSetting<float>& setting);
double readSetting(CRegistryKey& key, const GpsSetting<double>& setting);

// The start values of a run: settings from the current hive, the last saved position, the fix
// time "now" and the previous one a day before. The source index is left to the caller.
void loadGpsFixStart(GpsFix& fix, const DeviceClock& clock);
