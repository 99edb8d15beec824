#include "maps/ui/overlays/CRunTrackOverlay.h"

#include "gps/CFendixDoc.h"
#include "gps/TrackLogReader.h"
#include "maps/ui/MapDisplaySettings.h"
#include "maps/ui/overlays/PolylinePainting.h"
#include "maps/ui/overlays/ScreenProjection.h"
#include "nav/GeoSphere.h"

#include <QFile>
#include <QFileInfo>
#include <QPainter>

namespace {
constexpr double kFastKmh = 130.0;
}

CRunTrackOverlay::CRunTrackOverlay(const CFendixDoc& doc, const MapDisplaySettings& settings)
    : m_doc(doc), m_settings(settings) {}

QColor CRunTrackOverlay::SpeedColour(double kmh) {
    const double share = std::clamp(kmh / kFastKmh, 0.0, 1.0);
    return QColor::fromHsvF(float((1.0 - share) * 240.0 / 360.0), 1.0f, 0.85f);
}

bool CRunTrackOverlay::ReadLog() {
    const QString path = m_doc.Log().path();
    const bool otherRun = path != m_strPath;
    if (otherRun) {
        m_strPath = path, m_nReadSize = -1;
        m_geo.clear(), m_speeds.clear();
    }
    if (m_strPath.isEmpty()) return otherRun;
    // Asked every frame: the clock first, so that the file is looked at only once a read is due.
    if (m_sinceRead.isValid() && m_sinceRead.elapsed() < kRereadMs) return otherRun;
    const qint64 size = QFileInfo(m_strPath).size();
    if (size == m_nReadSize) return otherRun;
    m_sinceRead.start();
    QFile file(m_strPath);
    std::vector<TrackPoint> points;
    if (!file.open(QIODevice::ReadOnly) || !ReadFromFile(&file, points, m_doc.Fix(), m_doc.Clock(), true))
        return otherRun;
    m_nReadSize = size;
    m_geo.clear(), m_speeds.clear();
    const TrackPoint* previous = nullptr;
    for (const TrackPoint& point : points) {
        if (!point.m_nValid) continue;
        if (previous) {
            // A log of GGA alone has no speed: the pace between the two positions gives it.
            const int64_t seconds = point.m_tTime - previous->m_tTime;
            const double km = GeoDistance(previous->m_dLong, previous->m_dLat, point.m_dLong, point.m_dLat);
            m_speeds.push_back(previous->m_fSpeed > 0 || seconds <= 0 ? previous->m_fSpeed
                                                                      : float(km * 3600.0 / double(seconds)));
        }
        m_geo.append(QPointF(point.m_dLong, point.m_dLat));
        previous = &point;
    }
    return true;
}

CMapOverlay::Drawing CRunTrackOverlay::Prepare(const MapViewport& viewport) {
    ReadLog();
    if (m_geo.size() < 2) return {};
    const ScreenProjection projection(viewport);
    if (m_settings.m_bColoredGraph)
        return [projection, geo = m_geo, speeds = m_speeds](QPainter& painter) {
            PolylinePainting::DrawColouredLine(
                painter, projection, geo, [&speeds](int i) { return SpeedColour(speeds[size_t(i)]); }, 4.0);
        };
    return [projection, geo = m_geo, colour = toQColor(m_settings.m_colGraph)](QPainter& painter) {
        PolylinePainting::DrawLine(painter, projection, geo, colour, 3.0);
    };
}
