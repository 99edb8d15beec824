#pragma once

#include "nav/GeoPosition.h"
#include "nav/PosFormat.h"

#include <QString>
#include <optional>

// The target fields of the GoTo page. Which of them a notation uses: latitude and longitude in the
// degree notations and in Mercator metres (y and x), zone, hemisphere, easting and northing in UTM, the
// reference in MGRS.
struct TypedTargetFields {
    QString m_strLat;
    QString m_strLon;
    QString m_strZone;
    QString m_strHemisphere;
    QString m_strEasting;
    QString m_strNorthing;
    QString m_strMgrs;
};

// Whether a field is enabled in `format`.
bool UsesLatLonFields(PosFormat format);
bool UsesUtmFields(PosFormat format);
bool UsesMgrsField(PosFormat format);

// The typed target; nothing when the notation's conversion fails (the target then stays as it was).
std::optional<GeoPosition> ParseTypedTarget(PosFormat format, const TypedTargetFields& fields);

// A position (degrees) shown in the fields of `format`; fields the notation cannot fill stay empty.
TypedTargetFields FormatTypedTarget(PosFormat format, const GeoPosition& position);

// The notation the "Calc Goto Pos" dialog writes coordinates in: `format` when it is one of degrees,
// else decimal degrees.
PosFormat DegreeNotation(PosFormat format);
