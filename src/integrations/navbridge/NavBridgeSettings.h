#pragma once

#include "settings/Setting.h"

// The settings of the navigation program bridge and its add-on page under SOFTWARE\Omvale\Fendix.
namespace NavBridgeSettings {
inline constexpr Setting<const char*> kProgram{"MNProgam", "", false}; // full path of the navigation program
inline constexpr Setting<bool> kAutoStartMN{"AutoStartMN", false, false};
inline constexpr Setting<bool> kInfo{"MNInfo", false, false}; // the single information box
inline constexpr Setting<const char*> kInfoText{"MNInfoText", "%Speed% km/h", false};
inline constexpr Setting<bool> kNextWaypoint{"MNMNextWP", false, false};
inline constexpr Setting<int32_t> kNextWaypointRadius{"MNMNextWPRadius", 0, false};
inline constexpr Setting<bool> kAnnouncement{"NSAnnoncement", false, false};
inline constexpr Setting<bool> kZoomOut{"NSZoomOut", false, false};
inline constexpr Setting<int32_t> kAutoAnnouncement{"AutoAnnouncement", 0, false}; // seconds; 0 = off
inline constexpr Setting<int32_t> kAutoTmc{"Auto TMC", 0, false};                  // minutes; 0 = off
// Rectangle and colours of the information box, stored in their registry forms ("RECT(...)",
// "Color(...)"); none by default.
inline constexpr const char* kInfoRect = "MNInfoRect";
inline constexpr const char* kInfoColorBG = "MNInfoColorBG";
inline constexpr const char* kInfoColorText = "MNInfoColorText";

// MobileNavigator's installation, when "MNProgam" is not set.
inline constexpr const char* kInstallKey = "SOFTWARE\\Apps\\NAVIGON MobileNavigator PDA";
inline constexpr const char* kInstallDir = "InstallDir";
} // namespace NavBridgeSettings
