#include "maps/ui/overlays/CMeasureOverlay.h"

#include "maps/ui/MapDisplaySettings.h"
#include "maps/ui/overlays/PolylinePainting.h"
#include "maps/ui/overlays/ScreenProjection.h"
#include "nav/track/Measurement.h"

#include <QMenu>
#include <QPainter>

CMeasureOverlay::CMeasureOverlay(CMeasurement& measurement, const MapDisplaySettings& settings)
    : m_measurement(measurement), m_settings(settings) {}

QString CMeasureOverlay::Summary(const CMeasurement& measurement) {
    const TrackVertices& points = measurement.Points();
    QString text = QStringLiteral("%1 km").arg(MeasuredKm(points), 0, 'f', 3);
    if (points.size() >= 3) text += QStringLiteral("  ") + AreaText(EnclosedSquareMetres(points));
    return text;
}

bool CMeasureOverlay::Tapped(QPointF position) {
    if (!m_measurement.IsMeasuring()) return false;
    m_measurement.Add(position.x(), position.y());
    return true;
}

void CMeasureOverlay::AddCommands(QMenu& menu) {
    QAction* measuring = menu.addAction(QStringLiteral("Messen"));
    measuring->setCheckable(true);
    measuring->setChecked(m_measurement.IsMeasuring());
    CMeasurement* measurement = &m_measurement;
    QObject::connect(measuring, &QAction::toggled, &menu,
                     [measurement](bool on) { measurement->SetMeasuring(on); });
    menu.addAction(QStringLiteral("Letzten Messpunkt löschen"), &menu,
                   [measurement] { measurement->RemoveLast(); })
        ->setEnabled(!m_measurement.Points().empty());
    menu.addAction(QStringLiteral("Messung löschen"), &menu, [measurement] { measurement->Clear(); })
        ->setEnabled(!m_measurement.Points().empty());
}

void CMeasureOverlay::PaintLive(QPainter& painter, const MapViewport& viewport) {
    const TrackVertices& points = m_measurement.Points();
    if (points.empty() && !m_measurement.IsMeasuring()) return;
    const QColor colour = toQColor(m_settings.m_colMeasurement);
    const ScreenProjection projection(viewport);
    QPolygonF geo;
    for (const TrackVertex& point : points)
        geo.append(QPointF(point.m_dLon, point.m_dLat));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (geo.size() >= 3) {
        painter.setPen(QPen(colour, 1.5, Qt::DashLine));
        for (const QPolygonF& piece : projection.Polyline(QPolygonF({geo.back(), geo.front()}),
                                                          ScreenProjection::Around(painter.window(), 4)))
            painter.drawPolyline(piece);
    }
    PolylinePainting::DrawLine(painter, projection, geo, colour, 2.5);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(colour);
    for (const QPointF& point : geo)
        if (const auto at = projection.Map(point)) painter.drawEllipse(*at, 4, 4);
    painter.restore();
    PolylinePainting::DrawLabel(painter, QPointF(6, painter.window().height() / 8.0), Summary(m_measurement),
                                colour);
}
