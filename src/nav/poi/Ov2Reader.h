#pragma once

#include "nav/poi/PoiEntry.h"

#include <QByteArrayView>
#include <vector>

// Reads the records of a TomTom .ov2 file, in file order. Each record starts with a type byte and its
// total length (signed 32-bit little-endian, header included):
//   0      deleted: a non-negative length skips that many bytes after the header (one header too far,
//          as the handheld read it), a negative one nothing;
//   1      skipper over a block of records: its 16 bytes of bounding box are stepped over, its length
//          is not used, so the records of the block are read one by one;
//   2, 3   a point: longitude and latitude (signed 32-bit, 1e-5 deg), then the zero-terminated name;
//   above  ignored: the next header follows right after this one.
// A point's name offset is the record's start + 13 when 13 < length < 1023, else 0 (no name); read
// completely, longer records keep their names too.
// Damage ends the file: a point record shorter than its coordinates, or longer than the bytes left,
// gives nothing, and the points before it are kept. Never allocates by a length field.
std::vector<PoiEntry> ReadOv2(QByteArrayView bytes, PoiReading reading);
