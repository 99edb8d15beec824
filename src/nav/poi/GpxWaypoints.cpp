#include "nav/poi/GpxWaypoints.h"

#include "nav/gpx/GpxReader.h"
#include "nav/gpx/GpxWriter.h"

std::optional<NamedPois> ReadGpxWaypoints(const QByteArray& bytes, QString& error) {
    const auto document = ReadGpx(bytes, error);
    if (!document) return std::nullopt;
    NamedPois points;
    points.reserve(document->m_waypoints.size());
    for (const GpxPoint& p : document->m_waypoints)
        points.push_back({p.m_dLon, p.m_dLat, p.m_strName});
    return points;
}

QByteArray WriteGpxWaypoints(const NamedPois& points) {
    GpxDocument document;
    document.m_waypoints.reserve(points.size());
    for (const NamedPoi& p : points)
        document.m_waypoints.push_back({.m_dLat = p.m_dLat, .m_dLon = p.m_dLon, .m_strName = p.m_strName});
    return WriteGpx(document);
}
