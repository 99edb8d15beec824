#pragma once

#include "gps/logbook/LogEpochs.h"

#include <QByteArray>
#include <QString>
#include <optional>
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

// GPX 1.1 with one track named `name` of one segment, a point per epoch (time, ele, fix, sat, hdop;
// speed and course as GPX extensions). GPX names fewer fix kinds than GGA: quality 1 is "3d" with an
// altitude and "2d" without, 2 "dgps", 3 "pps"; RTK, estimated, manual and simulated fixes go without.
QByteArray gpx(const std::vector<LogEpoch>& epochs, const QString& name);

enum class Format { Gpx, Kml, Csv };

// The file name suffix: "gpx", "kml", "csv".
const char* suffix(Format format);

// The log file at `path` in `format`: its epochs dated from the file's name (today for a name of
// another form), the track named after the file. nullopt when the file cannot be read.
std::optional<QByteArray> exportLog(const QString& path, Format format, bool bAcceptAllTalkers);

// "2004-08-07T03:29:08.379Z", without the milliseconds when they are 0.
QByteArray utcText(int64_t utcMs);

} // namespace TrackExport
