#pragma once

#include "settings/Setting.h"

#include <QString>
#include <cstdint>

// The settings of a map view, under SOFTWARE\Omvale\Fendix for the first view and under
// "SOFTWARE\Omvale\Fendix\Map<N>" for view N >= 1. The flags are DWORD values.
namespace MapSettings {
inline constexpr Setting<const char*> kLoadedMap{"LoadedMap", "", false};  // path of the current map image
inline constexpr Setting<int32_t> kShowMap{"ShowMap", 0, false};           // show an image at all
inline constexpr Setting<int32_t> kAutoLoadNext{"AutoLoadNext", 1, false}; // change to the best map

QString KeyPath(int instance);
} // namespace MapSettings
