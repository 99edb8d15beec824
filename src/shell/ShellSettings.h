#pragma once

#include "gps/GpsSettings.h"

// The settings of the program window under SOFTWARE\Omvale\Fendix, declared once.
namespace ShellSettings {
inline constexpr const char* kCurrentView = "CurrentView"; // page name, written at every switch
inline constexpr GpsSetting<bool> kCloseByTitleBar{"CloseByTitleBar", true, false};
inline constexpr GpsSetting<const char*> kAutoStart{"AutoStart", "", false}; // program started with this one
inline constexpr GpsSetting<bool> kPostNavi{"PostNavi", false, false};
inline constexpr GpsSetting<bool> kAutoStartMN{"AutoStartMN", false, false};
inline constexpr GpsSetting<int32_t> kAutoAnnouncement{"AutoAnnouncement", 0, false}; // seconds; 0 = off
inline constexpr GpsSetting<int32_t> kAutoTmc{"Auto TMC", 0, false};                  // minutes; 0 = off
inline constexpr GpsSetting<int32_t> kPreAllocKB{"PreAllocKB", 0, true};              // memory reserve
inline constexpr GpsSetting<bool> kLowPriority{"LowPriority", false, false};
inline constexpr GpsSetting<bool> kCleanIECache{"CleanIECache", true, false};
inline constexpr GpsSetting<bool> kNoPowerdown{"NoPowerdown", false, false};
} // namespace ShellSettings
