#pragma once

#include "settings/Setting.h"

#include <cstdint>

struct GpsFix;
class DeviceClock;

// The settings of the GPS fix record, declared once; GpsFix starts from these defaults.
namespace GpsSettings {
// Read and written back, but a "*" checksum is compared whatever it says: that is the behaviour
// users of older logs rely on.
inline constexpr Setting<bool> kCheckCheckSum{"CheckCheckSum", true, true};
inline constexpr Setting<int32_t> kAltitudeOffset{"AltitudeOffset", -48, false}; // metres
inline constexpr Setting<bool> kAutoAltitudeOffset{"AutoAltitudeOffset", true, false};
inline constexpr Setting<float> kThresholdHeading{"ThresholdHeading", 2.0f, true}; // km/h
inline constexpr Setting<bool> kSetSystemTime{"SetSystemTime", true, true};
// The position saved at shutdown (degrees, written as single precision); without one the run
// starts at 0, 0.
inline constexpr Setting<double> kLastLong{"LastLong", 0.0, false};
inline constexpr Setting<double> kLastLat{"LastLat", 0.0, false};
} // namespace GpsSettings

// The start values of a run: settings from the current hive, the last saved position, the fix
// time "now" and the previous one a day before. The source index is left to the caller.
void loadGpsFixStart(GpsFix& fix, const DeviceClock& clock);
