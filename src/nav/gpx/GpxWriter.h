#pragma once

#include "nav/gpx/GpxDocument.h"

#include <QByteArray>

// A GPX 1.1 file (UTF-8, indented): waypoints, then routes, then tracks. Coordinates with at most nine
// decimals, other numbers in their shortest exact form, times in UTC with milliseconds only when there
// are any. Points outside +-90/+-180 or not finite are left out; an empty segment is left out.
QByteArray WriteGpx(const GpxDocument& document);
