#pragma once

#include <QDateTime>
#include <QString>

// Names given to targets and waypoints made from a position, with the local date and time:
// "Tarvik Pos: %02d.%02d.%02d %02d:%02d" (day, month, four-digit year, hour, minute) ...
QString TarvikPosName(const QDateTime& localNow);
// ... and with " (Altitude: %d m)" in whole metres, for a position from the GPS.
QString TarvikPosNameWithAltitude(const QDateTime& localNow, double altitudeMetres);
// "MN Position: (%02d.%02d.%02d %02d:%02d)": a target from the place last clicked in the navigation
// program.
QString MNClickName(const QDateTime& localNow);
