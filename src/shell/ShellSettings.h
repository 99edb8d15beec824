#pragma once

#include "integrations/navbridge/NavBridgeSettings.h"
#include "settings/Setting.h"

// The settings of the program window under SOFTWARE\Omvale\Fendix, declared once.
namespace ShellSettings {
// The page name, written at every switch; none before the first.
inline constexpr Setting<const char*> kCurrentView{"CurrentView", "", false};
inline constexpr Setting<bool> kCloseByTitleBar{"CloseByTitleBar", true, false};
inline constexpr Setting<const char*> kAutoStart{"AutoStart", "", false}; // program started with this one
inline constexpr Setting<bool> kPostNavi{"PostNavi", false, false};
// Edited on the navigation program's add-on page, declared there.
using NavBridgeSettings::kAutoAnnouncement;
using NavBridgeSettings::kAutoStartMN;
using NavBridgeSettings::kAutoTmc;
inline constexpr Setting<int32_t> kPreAllocKB{"PreAllocKB", 0, true}; // memory reserve
inline constexpr Setting<bool> kLowPriority{"LowPriority", false, false};
inline constexpr Setting<bool> kCleanIECache{"CleanIECache", true, false};
inline constexpr Setting<bool> kNoPowerdown{"NoPowerdown", false, false};
} // namespace ShellSettings
