#pragma once

#include <QByteArrayView>
#include <vector>

// One point of an editable track, longitude first as the track module keeps it. (The log reader's
// point, with time and fix, is the GPS subsystem's TrackPoint.)
struct TrackVertex {
    double m_dLon = 0; // degrees
    double m_dLat = 0; // degrees

    bool operator==(const TrackVertex&) const = default;
};

using TrackVertices = std::vector<TrackVertex>;

// A ".tk" track file: one point a line, latitude first, "%1.7f,%1.7f,\n" (the trailing comma makes the
// third field). Lines of up to 1024 bytes; a line with fewer than three comma fields is skipped.
TrackVertices ReadTk(QByteArrayView bytes);
QByteArray WriteTk(const TrackVertices& track);

// The "km" column: the distance along the track from the first point to each point (GeoDistance).
std::vector<double> RunningKm(const TrackVertices& track);
