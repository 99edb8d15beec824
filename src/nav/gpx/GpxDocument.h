#pragma once

#include <QDateTime>
#include <QString>
#include <optional>
#include <vector>

// One point of a GPX file: a waypoint, a route point or a track point. What GPX 1.1 has no element for
// (speed, course) travels in Garmin's TrackPointExtension, as GPSBabel and most devices write it.
struct GpxPoint {
    double m_dLat = 0; // degrees, north positive
    double m_dLon = 0; // degrees, east positive
    QString m_strName;
    std::optional<double> m_dEle;    // metres
    std::optional<QDateTime> m_time; // UTC
    std::optional<double> m_dSpeed;  // km/h (metres per second in the file)
    std::optional<double> m_dCourse; // degrees from north
    QString m_strFix;                // "none", "2d", "3d", "dgps", "pps" or empty
    std::optional<int> m_nSat;
    std::optional<double> m_dHdop;

    bool operator==(const GpxPoint&) const = default;
};

using GpxPoints = std::vector<GpxPoint>;

struct GpxRoute {
    QString m_strName;
    GpxPoints m_points;
};

struct GpxTrack {
    QString m_strName;
    std::vector<GpxPoints> m_segments;
};

struct GpxDocument {
    GpxPoints m_waypoints;
    std::vector<GpxRoute> m_routes;
    std::vector<GpxTrack> m_tracks;
};
