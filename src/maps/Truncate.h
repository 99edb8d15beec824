#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

// As the handheld's processor converts a double to an integer: toward zero, saturating at the 32-bit
// limits, NaN to 0.
inline int32_t TruncateToInt32(double value) {
    if (std::isnan(value)) return 0;
    if (value >= 2147483647.0) return std::numeric_limits<int32_t>::max();
    if (value <= -2147483648.0) return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(value);
}
