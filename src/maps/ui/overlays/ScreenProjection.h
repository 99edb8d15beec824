#pragma once

#include <QPolygonF>
#include <QTransform>
#include <optional>
#include <vector>

class MapViewport;

// (lon, lat) to screen pixels for an overlay's many positions: one transform for the frame. In
// perspective, ground behind the eye has no place on the screen: such positions are left out and a
// line is cut there into pieces.
class ScreenProjection {
public:
    explicit ScreenProjection(const MapViewport& viewport);

    std::optional<QPointF> Map(QPointF geo) const;
    // The pieces of the polyline through `geo` that lie in front of the eye.
    std::vector<QPolygonF> Polyline(const QPolygonF& geo) const;

private:
    QTransform m_transform;
};
