#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

// A point with its name as text: what conversion between POI formats carries.
struct NamedPoi {
    double m_dLon; // degrees
    double m_dLat; // degrees
    QString m_strName;

    bool operator==(const NamedPoi&) const = default;
};

using NamedPois = std::vector<NamedPoi>;

// A coordinate as the text formats write it: fixed point, at most 9 decimals (0.1 mm), no trailing
// zeros, whatever the locale.
QByteArray PoiDegreesText(double degrees);

// Whether a point can be written at all: finite, longitude within +-180, latitude within +-90.
bool IsWritablePoi(const NamedPoi& point);
