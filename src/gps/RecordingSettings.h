#pragma once

#include "settings/Setting.h"

// The settings of the position state, the tour and the track log under SOFTWARE\Omvale\Fendix,
// declared once.
namespace RecordingSettings {
// km/h; a fix that implies a faster movement from the last one is rejected.
inline constexpr Setting<int32_t> kSpeedLimit{"SpeedLimit", 1000, true};
// Minutes; a longer gap between two fixes is a break, not a movement.
inline constexpr Setting<int32_t> kMaxBreakMin{"MaxBreakMin", 60, true};
// km/h; above this speed a fix counts as moving (tour and moving figures).
inline constexpr Setting<int32_t> kMinSpeedForAvr2{"MinSpeedForAvr2", 3, false};

// The tour. A tour missing either value is reset at start: to these defaults, and "TourStart" to now.
inline constexpr Setting<int32_t> kTourTime{"TourTime", 0, false};   // seconds of moving time
inline constexpr Setting<double> kTour{"Tour", 0.0, false};          // km of moving distance
inline constexpr Setting<int32_t> kTourStart{"TourStart", 0, false}; // local seconds since 1970

// Seconds between two logged sentences of one type; 0 logs every sentence, -1 switches logging off.
inline constexpr Setting<int32_t> kLogDelay{"LogDelay", 10, false};
inline constexpr int32_t kLogDelayOff = -1;
// Comma-separated sentence names to log; "$GPGGA" is always added.
inline constexpr Setting<const char*> kLogType{"LogType", "$GPGGA", false};
inline constexpr Setting<const char*> kLogDirectory{"LogDirectory", "/My Documents/TragLog", false};
// Days; older log files are deleted a minute after start.
inline constexpr Setting<int32_t> kDelFilesOlder{"DelFilesOlder", 30, false};
} // namespace RecordingSettings
