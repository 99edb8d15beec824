#pragma once

#include <cstdint>

// The registry settings of the navigation subsystem (key SOFTWARE\Omvale\Fendix, current user),
// each declared once: name, default and whether a missing value is written back with the default.
struct NavDwordSetting {
    const char* m_szName;
    uint32_t m_nDefault;
    bool m_bWriteBack;
};

namespace NavSettings {
inline constexpr NavDwordSetting PosFormat{"PosFormat", 0, false}; // notation of positions, see PosFormat.h
} // namespace NavSettings

// The stored value, or the default when it is missing (then written back if the setting says so).
uint32_t ReadNavSetting(const NavDwordSetting& setting);
