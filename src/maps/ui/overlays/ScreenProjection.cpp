#include "maps/ui/overlays/ScreenProjection.h"

#include "maps/ui/MapViewport.h"

#include <cmath>

namespace {
// A homogeneous weight below this lies at or behind the eye (1 is the weight at the centre).
constexpr double kMinWeight = 1e-3;
} // namespace

ScreenProjection::ScreenProjection(const MapViewport& viewport) : m_transform(viewport.GeoToScreen()) {}

std::optional<QPointF> ScreenProjection::Map(QPointF geo) const {
    const QTransform& t = m_transform;
    const double w = t.m13() * geo.x() + t.m23() * geo.y() + t.m33();
    if (w < kMinWeight) return std::nullopt;
    return QPointF((t.m11() * geo.x() + t.m21() * geo.y() + t.m31()) / w,
                   (t.m12() * geo.x() + t.m22() * geo.y() + t.m32()) / w);
}

std::vector<QPolygonF> ScreenProjection::Polyline(const QPolygonF& geo, const QRectF& window) const {
    std::vector<QPolygonF> pieces;
    QPolygonF piece;
    std::optional<QPointF> previous;
    const auto endPiece = [&] {
        if (piece.size() >= 2) pieces.push_back(std::move(piece));
        piece = QPolygonF();
    };
    for (const QPointF& point : geo) {
        const std::optional<QPointF> screen = Map(point);
        if (!screen) {
            endPiece();
            previous.reset();
            continue;
        }
        if (previous) {
            const QRectF segment = QRectF(*previous, *screen).normalized();
            if (segment.right() >= window.left() && segment.left() <= window.right() &&
                segment.bottom() >= window.top() && segment.top() <= window.bottom()) {
                if (piece.isEmpty()) piece.append(*previous);
                // Points closer than a pixel to the last one kept add nothing but stroking time.
                const QPointF step = *screen - piece.back();
                if (std::abs(step.x()) >= 1.0 || std::abs(step.y()) >= 1.0) piece.append(*screen);
            } else {
                endPiece();
            }
        }
        previous = screen;
    }
    endPiece();
    return pieces;
}
