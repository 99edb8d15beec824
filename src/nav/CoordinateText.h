#pragma once

#include "nav/PosFormat.h"

#include <QString>

// One coordinate (decimal degrees) as text in a position notation:
//   DegreesMinutes         "N 48°07.407" / "E 011°34.200"
//   DegreesMinutesSeconds  "N 48°07'24''" / "E 011°34'12''" (whole seconds)
//   DecimalDegrees         "N 48.123457" / "E 11.570000"
//   Utm                    "48.123457" / "-11.570000", signed (the latitude and longitude fields of UTM)
// FromSettings reads "PosFormat" now; every other notation (MGRS, Falk/MarcoPolo, or a number outside
// the list) and a value that is not a finite number give an empty text.
QString FormatCoordinate(double value, PosFormat format, bool isLatitude);

// Reads one typed coordinate in any of the degree notations above (hemisphere letter only in front,
// S/W/- make it negative; ' ` , and U+FFB4 all serve as marks). `value` in decimal degrees, 0.0 when
// the text holds no number. False only for an empty text.
bool ParseCoordinate(const QString& text, double& value);
