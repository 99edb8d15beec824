#pragma once

#include "settings/Setting.h"

// The track page's settings under SOFTWARE\Omvale\Fendix, declared once.
namespace TrackSettings {
inline constexpr Setting<const char*> kTrack{"Track", "", false};          // the last opened or saved track
inline constexpr Setting<bool> kTrackNumbers{"TrackNumbers", true, false}; // the map draws point numbers
} // namespace TrackSettings
