#include "maps/ui/overlays/CWaypointOverlay.h"

#include "gps/GpsFix.h"
#include "maps/ui/overlays/PolylinePainting.h"
#include "maps/ui/overlays/ScreenProjection.h"
#include "nav/goto/GoToTarget.h"
#include "nav/waypoints/WaypointList.h"

#include <QPainter>

CWaypointOverlay::CWaypointOverlay(const CWaypointList& waypoints, const CGoToTarget& target,
                                   const GpsFix& fix)
    : m_waypoints(waypoints), m_target(target), m_fix(fix) {}

CMapOverlay::Drawing CWaypointOverlay::Prepare(const MapViewport& viewport) {
    if (m_waypoints.Items().empty()) return {};
    return [projection = ScreenProjection(viewport), waypoints = m_waypoints.Items()](QPainter& painter) {
        DrawFlags(painter, projection, waypoints);
    };
}

void CWaypointOverlay::DrawFlags(QPainter& painter, const ScreenProjection& projection,
                                 const Waypoints& waypoints) {
    const QRectF window = QRectF(painter.window()).adjusted(-20, -20, 20, 20);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor flag = QColor::fromRgba(kWaypointColour);
    for (const Waypoint& waypoint : waypoints) {
        const auto at = projection.Map(QPointF(waypoint.m_dLon, waypoint.m_dLat));
        if (!at || !window.contains(*at)) continue;
        painter.setPen(QPen(flag.darker(140), 2));
        painter.drawLine(*at, *at - QPointF(0, 16));
        painter.setPen(Qt::NoPen);
        painter.setBrush(flag);
        painter.drawPolygon(QPolygonF({*at - QPointF(0, 16), *at - QPointF(-11, 12), *at - QPointF(0, 8)}));
        painter.drawEllipse(*at, 3, 3);
        if (!waypoint.m_strName.isEmpty())
            PolylinePainting::DrawLabel(painter, *at + QPointF(12, -14), waypoint.m_strName,
                                        flag.darker(140));
    }
    painter.restore();
}

void CWaypointOverlay::PaintLive(QPainter& painter, const MapViewport& viewport) {
    const ScreenProjection projection(viewport);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    double lon = 0, lat = 0;
    if (m_target.GetTarget(lon, lat)) {
        const QColor colour = QColor::fromRgba(kTargetColour);
        if (m_fix.hasFix())
            PolylinePainting::DrawLine(
                painter, projection,
                QPolygonF({QPointF(m_fix.m_dPosLong, m_fix.m_dPosLat), QPointF(lon, lat)}), colour, 2.0);
        if (const auto at = projection.Map(QPointF(lon, lat))) {
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(Qt::white, 6));
            painter.drawEllipse(*at, 10, 10);
            painter.setPen(QPen(colour, 3));
            painter.drawEllipse(*at, 10, 10);
            painter.setBrush(colour);
            painter.drawEllipse(*at, 2, 2);
        }
    }
    painter.restore();
}
