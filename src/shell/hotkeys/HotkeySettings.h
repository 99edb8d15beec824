#pragma once

#include "settings/Setting.h"

// The settings of the hotkey actions and of the keys that stand for the five application buttons,
// under SOFTWARE\Omvale\Fendix, declared once. The assignments themselves are HotkeyAssignments'.
namespace HotkeySettings {
// Backlight limits and step in percent of the device's maximum.
inline constexpr Setting<int32_t> kMinBackLight{"MinBackLight", 10, false};
inline constexpr Setting<int32_t> kMaxBackLight{"MaxBackLight", 100, false};
inline constexpr int kBackLightStep = 10;
// Steps of the program's volume, in percent.
inline constexpr int kVolumeStep = 10;
inline constexpr Setting<bool> kShowRebootWarning{"ShowRebootWarning", true, false};
// Screenshots are "<ScreenshotDir>GScreen_<n>.bmp": the folder with its closing separator.
inline constexpr Setting<const char*> kScreenshotDir{"ScreenshotDir", "\\My Documents\\", false};

// The input device read beside the window's keyboard: its name or a /dev/input path; empty: none.
inline constexpr Setting<const char*> kDevice{"HotkeyDevice", "", false};
// The window's key of each button, as a key sequence text ("F1", "Media Play").
inline constexpr Setting<const char*> kWindowKeys[] = {{"HotkeyKey1", "F1", false},
                                                       {"HotkeyKey2", "F2", false},
                                                       {"HotkeyKey3", "F3", false},
                                                       {"HotkeyKey4", "F4", false},
                                                       {"HotkeyKey5", "F5", false}};
// The device's key of each button, as the kernel's key code: previous, play/pause, next, volume
// down, volume up — what remotes and steering-wheel interfaces have.
inline constexpr Setting<int32_t> kDeviceKeys[] = {{"HotkeyCode1", 165, false},
                                                   {"HotkeyCode2", 164, false},
                                                   {"HotkeyCode3", 163, false},
                                                   {"HotkeyCode4", 114, false},
                                                   {"HotkeyCode5", 115, false}};
} // namespace HotkeySettings
