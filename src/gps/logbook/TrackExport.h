#pragma once

#include "gps/logbook/LogEpochs.h"

#include <QByteArray>
#include <QString>
#include <vector>

// A log's epochs as files other programs read. Nothing is dropped or derived: every value an
// epoch holds is written, a missing one is left empty.
namespace TrackExport {

// KML 2.2 with one gx:Track named `name` (Google Earth, GPSBabel, QGIS): a <when> and a <gx:coord>
// "lon lat alt" for each epoch, and speed (km/h), course (degrees), fix quality, satellites and
// HDOP as arrays of the track's ExtendedData.
QByteArray kml(const std::vector<LogEpoch>& epochs, const QString& name);

// CSV, header "time,lon,lat,alt,speed,course,fix,sats,hdop" (UTC, degrees, metres, km/h,
// degrees).
QByteArray csv(const std::vector<LogEpoch>& epochs);

// "2004-08-07T03:29:08.379Z", without the milliseconds when they are 0.
QByteArray utcText(int64_t utcMs);

} // namespace TrackExport
