#pragma once

#include "nav/poi/PoiEntry.h"

#include <QByteArrayView>
#include <vector>

// Reads the points of an .asc POI text file (8-bit text, "lon, lat, name" lines), in file order.
// Lines are read as through a 1024-byte buffer: a line ends after its "\n" or at 1023 bytes, and a NUL
// ends its text. A line that starts with ';' or is shorter than 5 bytes is skipped; otherwise its last
// byte (the line end) is cut off. Blanks (space, tab) are skipped, then the longitude is read as a
// decimal number (no digits: 0), then blanks, then a ',' must follow or the line is skipped; then
// blanks, the latitude, one more character (the comma) and blanks: the name starts there, quotes and
// all. The name offset is the file position after the last line that gave a point, plus the name's
// column: lines skipped since then are not counted, so the name of the first point after a comment
// points into the wrong place. The handheld read it so, and this reader keeps it when reading as listed;
// read completely, each name offset is that of its own line. A number beyond the
// range of a double makes its line unreadable.
std::vector<PoiEntry> ReadAsc(QByteArrayView bytes, PoiReading reading);
