#pragma once

#include "nav/poi/NamedPoi.h"

#include <QByteArray>
#include <QString>
#include <optional>

// The waypoints (<wpt lat lon>, with their <name>) of a GPX 1.0 or 1.1 file, as ReadGpx reads them;
// routes and tracks are passed over. Nothing, with the problem in `error`, when ReadGpx refuses the file.
std::optional<NamedPois> ReadGpxWaypoints(const QByteArray& bytes, QString& error);

// A GPX 1.1 file of one waypoint a point (coordinates as PoiDegreesText); points without a valid
// position are left out.
QByteArray WriteGpxWaypoints(const NamedPois& points);
