#pragma once

#include "settings/Setting.h"

// The GoTo page's settings under SOFTWARE\Omvale\Fendix, declared once. Beep switch, volume and
// repeat have no stored default: the page starts with these values until the user stores some.
namespace GoToSettings {
// Empty: "\Tarvik\Waypoints.asc" in the program folder, written back (see WaypointFilePath).
inline constexpr Setting<const char*> kWaypoints{"Waypoints", "", false};
inline constexpr Setting<bool> kShowCurrent{"GoToShowCurrent", true, false};
inline constexpr Setting<bool> kShowToNorth{"GOTOShowToNorth", true, false};
inline constexpr Setting<bool> kBeep{"GoToBeep", false, false};
inline constexpr Setting<int32_t> kBeepVolume{"GoToBeepVol", 0x8000, false}; // tone amplitude 0..65535
inline constexpr Setting<uint8_t> kBeepRepeat{"GoToBeepRepeat", 2, false};   // every n-th update
// Under HKLM Drivers\BuiltIn\Vantrel: whether each new target goes to the splitter driver.
inline constexpr const char* kVantrelKey = "Drivers\\BuiltIn\\Vantrel";
inline constexpr Setting<bool> kSimulate{"Simulate", false, false};

inline constexpr const char* kDefaultWaypointFile = "\\Tarvik\\Waypoints.asc";
} // namespace GoToSettings
