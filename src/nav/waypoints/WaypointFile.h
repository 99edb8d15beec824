#pragma once

#include "nav/poi/NamedPoi.h"

#include <QByteArray>
#include <QString>

// A waypoint of the GoTo page: longitude, latitude (degrees), name.
using Waypoint = NamedPoi;
using Waypoints = NamedPois;

// The waypoint file ("Waypoints.asc"): one line a record, "lon,lat,\"name\"". Lines of up to 4096 bytes;
// ';' lines are comments; a line with fewer than three comma fields is ignored; the name is the third
// field with blanks trimmed and every '"' removed (a comma inside a name ends it). Each line is UTF-8
// when it is valid UTF-8, else Windows-1252.
Waypoints ReadWaypoints(QByteArrayView bytes);

// Each record as "%3.5f,%2.5f,\"%S\"\n", the name in Windows-1252 (UTF-8 only for a name with a
// character Windows-1252 lacks); no header.
QByteArray WriteWaypoints(const Waypoints& waypoints);

// The file at the host path; a missing or unreadable file gives an empty list.
Waypoints LoadWaypointFile(const QString& path);
// Whether two records are the same once written: equal names and equal coordinates to the file's five
// decimals, so that a line imported again after the list was saved and read back is still known.
bool SameWaypoint(const Waypoint& a, const Waypoint& b);

// Truncates and writes the whole list; false when the file cannot be written.
bool SaveWaypointFile(const QString& path, const Waypoints& waypoints);
