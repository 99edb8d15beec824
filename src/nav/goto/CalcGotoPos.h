#pragma once

#include "nav/GeoPosition.h"
#include "nav/PosFormat.h"

#include <QString>
#include <optional>

// The "Calc Goto Pos" dialog's two computations, texts in and out.
struct CalcForwardResult {
    GeoPosition m_position; // degrees
    QString m_strLat;       // "Breite nach", FormatCoordinate in `format`
    QString m_strLon;       // "Länge nach"
};

struct CalcBackwardResult {
    double m_dDistanceKm = 0;
    double m_dCourseDeg = 0;
    QString m_strDistance; // "Entf.": "%.03f" km
    QString m_strCourse;   // "Richtung": "%.03f" degrees
};

// From the start ("Breite"/"Länge" "von", any notation ParseCoordinate reads) `distanceKm` along
// `courseDeg`. Nothing when a start field is empty.
std::optional<CalcForwardResult> CalcForward(const QString& latFrom, const QString& lonFrom, double courseDeg,
                                             double distanceKm, PosFormat format);

// Distance and course from the start to the end position. Nothing when a field is empty.
std::optional<CalcBackwardResult> CalcBackward(const QString& latFrom, const QString& lonFrom,
                                               const QString& latTo, const QString& lonTo);
