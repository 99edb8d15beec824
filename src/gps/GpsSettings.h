#pragma once

#include "settings/Setting.h"

#include <cstdint>

class CRegistryKey;
struct GpsFix;
class DeviceClock;

// The GPS subsystem declares its settings as Setting<T> of the settings store.
template <typename T> using GpsSetting = Setting<T>;

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

// The start values of a run: settings from the current hive, the last saved position, the fix
// time "now" and the previous one a day before. The source index is left to the caller.
void loadGpsFixStart(GpsFix& fix, const DeviceClock& clock);
