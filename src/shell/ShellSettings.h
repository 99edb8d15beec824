#pragma once

#include "settings/Setting.h"

// The settings of the program window under SOFTWARE\Omvale\Fendix, declared once.
namespace ShellSettings {
// The page name, written at every switch; none before the first.
inline constexpr Setting<const char*> kCurrentView{"CurrentView", "", false};
inline constexpr Setting<bool> kCloseByTitleBar{"CloseByTitleBar", true, false};
inline constexpr Setting<const char*> kAutoStart{"AutoStart", "", false}; // program started with this one
inline constexpr Setting<bool> kPostNavi{"PostNavi", false, false};
inline constexpr Setting<bool> kAutoStartMN{"AutoStartMN", false, false};
inline constexpr Setting<int32_t> kAutoAnnouncement{"AutoAnnouncement", 0, false}; // seconds; 0 = off
inline constexpr Setting<int32_t> kAutoTmc{"Auto TMC", 0, false};                  // minutes; 0 = off
inline constexpr Setting<int32_t> kPreAllocKB{"PreAllocKB", 0, true};              // memory reserve
inline constexpr Setting<bool> kLowPriority{"LowPriority", false, false};
inline constexpr Setting<bool> kCleanIECache{"CleanIECache", true, false};
inline constexpr Setting<bool> kNoPowerdown{"NoPowerdown", false, false};
} // namespace ShellSettings
