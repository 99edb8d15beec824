#pragma once

#include "nav/poi/NamedPoi.h"

#include <QByteArray>

// A TomTom .ov2 file of the points: type 2 records (coordinates rounded to 1e-5 deg, names as
// PoiNameBytes, cut to 1009 bytes so that they are read back) under a tree of type 1 skipper records.
// Each skipper holds the bounding box and the length of its block, so that a device can step over the
// blocks away from it; blocks are split at the median of their longer side down to 16 points. Points
// without a valid position (beyond +-180 / +-90, not finite) are left out.
QByteArray WriteOv2(const NamedPois& points);
