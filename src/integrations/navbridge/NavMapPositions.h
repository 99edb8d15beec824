#pragma once

#include "gps/sources/MNPositionFile.h"
#include "nav/GeoPosition.h"

#include <optional>

// What the navigation program's position file tells of its map. A coordinate of exactly 0 counts
// as not told, as it does for the GoTo target.
namespace NavMapPositions {
// The centre of the map: the mean of its corners. The file names three; the fourth completes the
// rectangle, so the mean is the midpoint of the top-left and bottom-right corners.
std::optional<GeoPosition> mapCentre(const MNPosition& position);
// The place last clicked, from millionths of a degree.
std::optional<GeoPosition> lastClick(const MNPosition& position);
} // namespace NavMapPositions
