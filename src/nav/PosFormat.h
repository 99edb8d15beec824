#pragma once

#include <QStringList>
#include <cstdint>

// The position notations the user can choose ("PosFormat"), in the order of the choice list.
enum class PosFormat : int8_t {
    FromSettings = -1,         // for a caller: whichever of the others "PosFormat" holds now
    DegreesMinutes = 0,        // "dd°mm.mmm"
    DegreesMinutesSeconds = 1, // "dd°mm'ss''"
    DecimalDegrees = 2,        // "dd.dddddd" with hemisphere letter
    Utm = 3,                   // zone, hemisphere, easting, northing
    Mgrs = 4,                  // MGRS reference
    FalkMarcoPolo = 5          // spherical Mercator metres
};

// The names shown in the choice list, indexed by the PosFormat value.
QStringList posFormatNames();

// "PosFormat" from the settings; a stored value outside the choice list counts as DegreesMinutes.
PosFormat readPosFormat();
