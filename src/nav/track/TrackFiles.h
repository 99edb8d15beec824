#pragma once

#include "nav/gpx/GpxDocument.h"
#include "nav/track/TkFile.h"

#include <QString>
#include <functional>

class QIODevice;

// The files a track is opened from and saved to, told by the extension (any case): ".txt" a recorded
// GPS log, ".gpx" GPX, anything else a ".tk" track file.
enum class TrackFileKind : uint8_t { Tk, Log, Gpx };
TrackFileKind TrackFileKindOf(const QString& path);

// The positions of a recorded log in log order (the GPS subsystem's ReadFromFile); false when the log
// cannot be read.
using LogPositionReader = std::function<bool(QIODevice& file, TrackVertices& track)>;

// Reads the file at the host path. False, with a one-line reason in `error`, when it cannot be opened
// or is a broken GPX file; `track` is then empty.
bool LoadTrackFile(const QString& path, const LogPositionReader& readLog, TrackVertices& track,
                   QString& error);
// Writes the track as ".tk" or, for a ".gpx" path, as one GPX track; false when the file cannot be written.
bool SaveTrackFile(const QString& path, const TrackVertices& track);

// A GPX file's tracks, segment after segment, then its routes: all as one track.
TrackVertices TrackFromGpx(const GpxDocument& document);
GpxDocument GpxFromTrack(const TrackVertices& track, const QString& name);
