#pragma once

#include <QString>
#include <optional>

// A destination handed to Tarvik from outside: its start arguments or another program's link.
struct Destination {
    double m_dLat = 0; // degrees
    double m_dLon = 0; // degrees
    QString m_strName;
};

// "LAT,LON[,NAME]" of `tarvik --goto` (decimal degrees; the name may hold commas). Nothing when the
// numbers are not finite or out of range.
std::optional<Destination> ParseGotoArgument(const QString& text);

// A geo: URI (RFC 5870) as browsers and address books hand it over: "geo:48.1,11.5" with optional
// altitude and ";" parameters, the name from "?q=" (percent-encoded); "geo:0,0?q=48.1,11.5(Name)", the
// form of phones, takes its position and name from the query.
std::optional<Destination> ParseGeoUri(const QString& uri);
