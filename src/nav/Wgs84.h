#pragma once

// The ellipsoid of all grid conversions (ellipsoid code "WE"). Fixed: nothing ever changes it.
namespace Wgs84 {
inline constexpr double kSemiMajorAxis = 6378137.0;          // metres
inline constexpr double kFlattening = 0.0033528106647474805; // 1 / 298.257223563
} // namespace Wgs84
