#pragma once

#include "nav/waypoints/WaypointFile.h"

#include <QByteArrayView>
#include <QString>
#include <optional>

// The free-form position of one import line ("Gipfel N 47°25.123 E 010°59.456"): a latitude token
// starts at 'N' or 'S', a longitude token at 'O' (Ost), 'W' or 'E', each when followed by a blank or
// digit and then a digit, and runs over digits, blanks, '°', apostrophes, '.' and ','; every other
// character makes up the name (trimmed, '"' removed). Nothing unless both coordinates were found, and
// for an empty or ';' line.
std::optional<Waypoint> ScanImportLine(const QString& line);

// Every line of an import file (lines of up to 4096 bytes, each UTF-8 when valid, else
// Windows-1252) appended to `waypoints`, except lines without a position and records the list already
// holds with exactly the same longitude, latitude and name. Returns the records added.
Waypoints ImportWaypoints(QByteArrayView bytes, Waypoints& waypoints);

// Appends to `waypoints` each record of `incoming` it does not hold yet (see SameWaypoint); returns the
// records added.
Waypoints MergeWaypoints(const Waypoints& incoming, Waypoints& waypoints);
