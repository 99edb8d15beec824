#pragma once

#include "nav/poi/NamedPoi.h"

#include <QByteArray>
#include <QString>
#include <optional>

// The POI formats Tarvik converts between, told by the file name's extension: TomTom .ov2 and .asc, the
// waypoints of .gpx, and .csv rows "lon,lat,name".
enum class PoiFormat : uint8_t { Ov2, Asc, Gpx, Csv };

std::optional<PoiFormat> PoiFormatOf(const QString& fileName);

// Every point of the bytes with its name, in file order: .ov2 and .asc read completely (no point left
// out, each name from its own place; an .asc name loses one pair of enclosing quotes). Nothing, with the
// problem in `error`, only for a broken .gpx or .csv; .ov2 and .asc give what they hold.
std::optional<NamedPois> ReadNamedPois(const QByteArray& bytes, PoiFormat format, QString& error);

QByteArray WriteNamedPois(const NamedPois& points, PoiFormat format);
