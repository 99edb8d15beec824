#pragma once

#include "settings/Setting.h"
#include "settings/ValueText.h"

#include <QString>
#include <cstdint>

// The settings of a map view, under SOFTWARE\Omvale\Fendix for the first view and under
// "SOFTWARE\Omvale\Fendix\Map<N>" for view N >= 1. The flags are DWORD values, the colours DWORDs
// holding red in the low byte.
namespace MapSettings {
inline constexpr Setting<const char*> kLoadedMap{"LoadedMap", "", false};  // path of the current map image
inline constexpr Setting<int32_t> kShowMap{"ShowMap", 0, false};           // show an image at all
inline constexpr Setting<int32_t> kAutoLoadNext{"AutoLoadNext", 1, false}; // change to the best map
// Where the file chooser starts while no map was opened: the device's map folder.
inline constexpr Setting<const char*> kMapPath{"MapPath", "/My Documents/Karten/", false};

inline constexpr Setting<int32_t> kColMeasurement{"ColMeasurement", int32_t(makeColour(0, 0, 192)), false};
inline constexpr Setting<int32_t> kColGraph{"ColGraph", int32_t(makeColour(128, 0, 0)), false};
inline constexpr Setting<int32_t> kColoredGraph{"ColoredGraph", 0, false};
inline constexpr Setting<int32_t> kMapBar{"MapBar", 1, false}; // the scale bar
// 0: a bar in m and km; 1: the bar with the scale as a ratio (1:25000); 2: the ratio alone.
inline constexpr Setting<int32_t> kScaleType{"ScaleType", 0, false};
// The perspective's strength: pixels from the position up to the horizon. The default is 500 on a
// screen of more than 100000 pixels (see PerspectiveDefault).
inline constexpr Setting<int32_t> kPerspective{"Perspective", 300, false};
inline constexpr Setting<int32_t> kShowScrollbarInMap{"ShowScrollbarInMap", 0, false};
inline constexpr Setting<int32_t> kTurnMap{"TurnMap", 0, false}; // the course points up
inline constexpr Setting<int32_t> kShowPerspective{"ShowPerspective", 0, false};

QString KeyPath(int instance);
int32_t PerspectiveDefault(int screenWidth, int screenHeight);
} // namespace MapSettings
