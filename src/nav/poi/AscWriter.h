#pragma once

#include "nav/poi/NamedPoi.h"

#include <QByteArray>

// An .asc POI text file: one line "lon,lat,\"name\"" a point (coordinates as PoiDegreesText, the name
// as PoiNameBytes with line breaks made blanks, cut to 1000 bytes), "\n" after each, no header: a
// comment line before a point would move its name for the program's own reading. Points without a valid
// position are left out.
QByteArray WriteAsc(const NamedPois& points);
