#pragma once

#include <QString>
#include <cstdint>

// One coordinate (decimal degrees) as text in a position notation:
//   0 "N 48°07.407" / "E 011°34.200"   degrees and decimal minutes
//   1 "N 48°07'24''" / "E 011°34'12''" degrees, minutes, whole seconds
//   2 "N 48.123457" / "E 11.570000"    decimal degrees with hemisphere letter
//   3 "48.123457" / "-11.570000"       signed decimal degrees (the latitude and longitude fields of UTM)
// `format` -1 reads "PosFormat" now; every other value (MGRS, Falk/MarcoPolo, ...) and a value that is
// not a finite number give an empty text.
QString FormatCoordinate(double value, int8_t format, bool isLatitude);

// Reads one typed coordinate in any of the degree notations above (hemisphere letter only in front,
// S/W/- make it negative; ' ` , and U+FFB4 all serve as marks). `value` in decimal degrees, 0.0 when
// the text holds no number. False only for an empty text.
bool ParseCoordinate(const QString& text, double& value);
