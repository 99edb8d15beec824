#pragma once

#include "settings/Setting.h"

// The settings of the navigation subsystem under SOFTWARE\Omvale\Fendix, declared once.
namespace NavSettings {
inline constexpr Setting<int32_t> kPosFormat{"PosFormat", 0, false}; // notation of positions, see PosFormat.h
} // namespace NavSettings
