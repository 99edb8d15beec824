#pragma once

// A geographic position on WGS 84 in decimal degrees: latitude -90..+90 (north positive),
// longitude east positive. Heights are never part of it.
struct GeoPosition {
    double m_dPosLat = 0.0;
    double m_dPosLong = 0.0;

    bool operator==(const GeoPosition&) const = default;
};
