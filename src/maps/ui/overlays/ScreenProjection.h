#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QTransform>
#include <optional>
#include <vector>

class MapViewport;

// (lon, lat) to screen pixels for an overlay's many positions: one transform for the frame. In
// perspective, ground behind the eye has no place on the screen: such positions are left out and a
// line is cut there into pieces.
class ScreenProjection {
public:
    static constexpr QRectF kEverywhere{-1e12, -1e12, 2e12, 2e12};

    explicit ScreenProjection(const MapViewport& viewport);

    std::optional<QPointF> Map(QPointF geo) const;
    // The pieces of the polyline through `geo` that lie in front of the eye and whose segments come
    // near `window` (screen pixels): a long track mostly off the screen is not stroked in full. A
    // ring to be filled is cut only behind the eye: the default window takes every segment.
    std::vector<QPolygonF> Polyline(const QPolygonF& geo, const QRectF& window = kEverywhere) const;

    // Around the painter's window by `margin` pixels, so that wide lines leave the screen whole.
    static QRectF Around(const QRectF& window, double margin) {
        return window.adjusted(-margin, -margin, margin, margin);
    }

private:
    QTransform m_transform;
};
