#include "maps/ui/overlays/CShapeOverlay.h"

#include "maps/shapes/ShapeLayers.h"
#include "maps/ui/MapDisplaySettings.h"
#include "maps/ui/MapViewport.h"
#include "maps/ui/overlays/PolylinePainting.h"
#include "maps/ui/overlays/ScreenProjection.h"

#include <QPainter>
#include <QPainterPath>

CShapeOverlay::CShapeOverlay(std::function<std::shared_ptr<ShapeLayers>()> layers)
    : m_layers(std::move(layers)) {}

CMapOverlay::Drawing CShapeOverlay::Prepare(const MapViewport& viewport) {
    m_pLayers = m_layers();
    if (!m_pLayers || m_pLayers->m_layers.empty()) return {};
    return [viewport, layers = m_pLayers](QPainter& painter) { Draw(painter, viewport, *layers); };
}

void CShapeOverlay::Draw(QPainter& painter, const MapViewport& viewport, ShapeLayers& layers) {
    const QRectF box = viewport.VisibleGeoBox();
    if (box.isEmpty()) return;
    const ScreenProjection projection(viewport);
    const QRectF window = ScreenProjection::Around(painter.window(), 30);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (ShapeLayers::Layer& layer : layers.m_layers) {
        const ShapeLayerStyle& style = layer.m_style;
        if (!style.ShowsAt(viewport.Scale())) continue;
        const std::vector<const Shape*>& shapes = layer.m_pShapes->ShapesIn(box);
        const QColor line = toQColor(style.m_colLine);
        // Smooth and at the layer's width while few shapes are in view; a dense layer is drawn with
        // hairlines, many times faster and no less readable where the lines crowd.
        const bool dense = shapes.size() > kMaxSmooth;
        painter.setRenderHint(QPainter::Antialiasing, !dense);
        painter.setPen(QPen(line, dense ? 0 : style.m_nWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        for (const Shape* shape : shapes) {
            switch (shape->m_kind) {
            case Shape::Kind::Points:
                painter.setBrush(line);
                for (const QPointF& point : shape->m_parts.front())
                    if (const auto at = projection.Map(point))
                        painter.drawRect(QRectF(*at - QPointF(3, 3), QSizeF(6, 6)));
                break;
            case Shape::Kind::Lines:
                for (const QPolygonF& part : shape->m_parts)
                    for (const QPolygonF& piece : projection.Polyline(part, window))
                        painter.drawPolyline(piece);
                break;
            case Shape::Kind::Polygons: {
                // Rings as one path: holes stay open under the odd-even rule.
                QPainterPath path;
                for (const QPolygonF& part : shape->m_parts)
                    for (const QPolygonF& piece : projection.Polyline(part))
                        path.addPolygon(piece), path.closeSubpath();
                painter.setBrush(style.m_colFill ? QBrush(toQColor(*style.m_colFill)) : QBrush(Qt::NoBrush));
                painter.drawPath(path);
                break;
            }
            }
        }
        if (style.m_strLabelField.isEmpty() || int(shapes.size()) > kMaxLabelled) continue;
        for (const Shape* shape : shapes) {
            if (shape->m_strLabel.isEmpty() || shape->m_parts.front().isEmpty()) continue;
            const QPolygonF& first = shape->m_parts.front();
            if (const auto at = projection.Map(first[first.size() / 2]))
                PolylinePainting::DrawLabel(painter, *at + QPointF(4, 2), shape->m_strLabel,
                                            line.darker(130));
        }
    }
    painter.restore();
}
