#pragma once

#include "nav/poi/NamedPoi.h"

#include <QByteArray>
#include <QString>
#include <optional>

// POIs as comma-separated text: "lon,lat,name" rows (degrees, the name quoted when it holds a comma, a
// quote or a line break, quotes doubled), after an optional header row "lon,lat,name". UTF-8, or
// Windows-1252 when not valid UTF-8. Nothing, with "line N: ..." in `error`, when a row's longitude or
// latitude is no number or no valid position.
std::optional<NamedPois> ReadPoiCsv(const QByteArray& bytes, QString& error);

// The header row, then one row a point (coordinates as PoiDegreesText), UTF-8, "\n" after each row.
QByteArray WritePoiCsv(const NamedPois& points);
