#pragma once

#include <QDateTime>
#include <QString>

// Names given to targets and waypoints made from a position, with the local date and time:
// "Tarvik Pos: %02d.%02d.%02d %02d:%02d" (day, month, four-digit year, hour, minute) ...
QString TarvikPosName(const QDateTime& localNow);
// ... and with " (Altitude: %d m)" in whole metres, for a position from the GPS.
QString TarvikPosNameWithAltitude(const QDateTime& localNow, double altitudeMetres);
