#pragma once

#include "settings/Setting.h"

// The track page's settings under SOFTWARE\Omvale\Fendix, declared once.
namespace TrackSettings {
inline constexpr Setting<const char*> kTrack{"Track", "", false};          // the last opened or saved track
inline constexpr Setting<bool> kTrackNumbers{"TrackNumbers", true, false}; // the map draws point numbers
// The colour the map draws the track in: red 0, green 192, blue 0.
inline constexpr Setting<int32_t> kTrackColor{"TrackColor", 49152, false};
} // namespace TrackSettings
