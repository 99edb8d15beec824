#include "nav/track/TrackFiles.h"

#include "nav/gpx/GpxReader.h"
#include "nav/gpx/GpxWriter.h"

#include <QFile>
#include <QFileInfo>

TrackFileKind TrackFileKindOf(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("txt")) return TrackFileKind::Log;
    if (suffix == QLatin1String("gpx")) return TrackFileKind::Gpx;
    return TrackFileKind::Tk;
}

bool LoadTrackFile(const QString& path, const LogPositionReader& readLog, TrackVertices& track,
                   QString& error) {
    track.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("cannot read %1").arg(path);
        return false;
    }
    switch (TrackFileKindOf(path)) {
    case TrackFileKind::Log:
        if (readLog(file, track)) return true;
        error = QStringLiteral("cannot read the log %1").arg(path);
        track.clear();
        return false;
    case TrackFileKind::Gpx:
        if (const auto document = ReadGpx(file.readAll(), error)) {
            track = TrackFromGpx(*document);
            return true;
        }
        error = path + QStringLiteral(": ") + error;
        return false;
    case TrackFileKind::Tk:
        track = ReadTk(file.readAll());
        return true;
    }
    return false;
}

bool SaveTrackFile(const QString& path, const TrackVertices& track) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    const QByteArray bytes = TrackFileKindOf(path) == TrackFileKind::Gpx
                                 ? WriteGpx(GpxFromTrack(track, QFileInfo(path).completeBaseName()))
                                 : WriteTk(track);
    return file.write(bytes) == bytes.size();
}

TrackVertices TrackFromGpx(const GpxDocument& document) {
    TrackVertices track;
    const auto append = [&track](const GpxPoints& points) {
        for (const GpxPoint& p : points)
            track.push_back({p.m_dLon, p.m_dLat});
    };
    for (const GpxTrack& t : document.m_tracks)
        for (const GpxPoints& segment : t.m_segments)
            append(segment);
    for (const GpxRoute& route : document.m_routes)
        append(route.m_points);
    return track;
}

GpxDocument GpxFromTrack(const TrackVertices& track, const QString& name) {
    GpxDocument document;
    GpxTrack& t = document.m_tracks.emplace_back();
    t.m_strName = name;
    GpxPoints& segment = t.m_segments.emplace_back();
    for (const TrackVertex& v : track)
        segment.push_back({.m_dLat = v.m_dLat, .m_dLon = v.m_dLon});
    return document;
}
