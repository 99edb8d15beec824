#pragma once

#include "nav/gpx/GpxDocument.h"

#include <QByteArray>
#include <QString>
#include <optional>

// The waypoints, routes and tracks of a GPX 1.0 or 1.1 file, in file order. Speed and course are taken
// from GPX 1.0's own elements or from an extension's <speed>/<course> (metres per second, degrees).
// Unknown elements, and values that are not numbers or times, are passed over. Nothing, with the problem
// and its line in `error`, when the XML is broken, the root is not <gpx>, or a point has no valid lat/lon.
std::optional<GpxDocument> ReadGpx(const QByteArray& bytes, QString& error);
