#pragma once

#include "gps/GpsSettings.h"

// The settings of the position state, the tour and the track log under SOFTWARE\Omvale\Fendix,
// declared once.
namespace RecordingSettings {
// km/h; a fix that implies a faster movement from the last one is rejected.
inline constexpr GpsSetting<int32_t> kSpeedLimit{"SpeedLimit", 1000, true};
// Minutes; a longer gap between two fixes is a break, not a movement.
inline constexpr GpsSetting<int32_t> kMaxBreakMin{"MaxBreakMin", 60, true};
// km/h; above this speed a fix counts as moving (tour and moving figures).
inline constexpr GpsSetting<int32_t> kMinSpeedForAvr2{"MinSpeedForAvr2", 3, false};

// The tour. No defaults: a tour missing either value is reset at start.
inline constexpr const char* kTourTime = "TourTime";   // seconds of moving time, 32-bit integer
inline constexpr const char* kTour = "Tour";           // km of moving distance, "%f" text
inline constexpr const char* kTourStart = "TourStart"; // local seconds since 1970, 32-bit integer

// Seconds between two logged sentences of one type; 0 logs every sentence, -1 switches logging off.
inline constexpr GpsSetting<int32_t> kLogDelay{"LogDelay", 10, false};
inline constexpr int32_t kLogDelayOff = -1;
// Comma-separated sentence names to log; "$GPGGA" is always added.
inline constexpr GpsSetting<const char*> kLogType{"LogType", "$GPGGA", false};
inline constexpr GpsSetting<const char*> kLogDirectory{"LogDirectory", "/My Documents/TragLog", false};
// Days; older log files are deleted a minute after start.
inline constexpr GpsSetting<int32_t> kDelFilesOlder{"DelFilesOlder", 30, false};
} // namespace RecordingSettings
