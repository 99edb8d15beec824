#include "maps/ui/overlays/PolylinePainting.h"

#include "maps/ui/overlays/ScreenProjection.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace PolylinePainting {

namespace {
QPen roundPen(const QColor& colour, double width) {
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}
} // namespace

void DrawLine(QPainter& painter, const ScreenProjection& projection, const QPolygonF& geo,
              const QColor& colour, double width) {
    const std::vector<QPolygonF> pieces =
        projection.Polyline(geo, ScreenProjection::Around(painter.window(), width + 2));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(roundPen(QColor(255, 255, 255, 160), width + 2.0));
    for (const QPolygonF& piece : pieces)
        painter.drawPolyline(piece);
    painter.setPen(roundPen(colour, width));
    for (const QPolygonF& piece : pieces)
        painter.drawPolyline(piece);
    painter.restore();
}

void DrawColouredLine(QPainter& painter, const ScreenProjection& projection, const QPolygonF& geo,
                      const std::function<QColor(int)>& colourOf, double width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    std::optional<QPointF> previous;
    for (int i = 0; i < geo.size(); ++i) {
        const std::optional<QPointF> screen = projection.Map(geo[i]);
        if (previous && screen) {
            painter.setPen(roundPen(colourOf(i - 1), width));
            painter.drawLine(*previous, *screen);
        }
        previous = screen;
    }
    painter.restore();
}

void DrawNumbers(QPainter& painter, const ScreenProjection& projection, const QPolygonF& geo,
                 const QColor& colour) {
    const QRectF window = painter.window();
    const double spacing = QFontMetricsF(painter.font()).height() * 1.5;
    std::optional<QPointF> last;
    for (int i = 0; i < geo.size(); ++i) {
        const std::optional<QPointF> screen = projection.Map(geo[i]);
        if (!screen || !window.contains(*screen)) continue;
        if (last && std::hypot(screen->x() - last->x(), screen->y() - last->y()) < spacing) continue;
        DrawLabel(painter, *screen + QPointF(4, 4), QString::number(i), colour);
        last = screen;
    }
}

void DrawLabel(QPainter& painter, QPointF at, const QString& text, const QColor& colour) {
    const QFontMetricsF metrics(painter.font());
    QRectF box(at, QSizeF(metrics.horizontalAdvance(text) + 6, metrics.height() + 2));
    const QRectF window = painter.window();
    box.moveLeft(
        std::clamp(box.left(), window.left(), std::max(window.left(), window.right() - box.width())));
    box.moveTop(std::clamp(box.top(), window.top(), std::max(window.top(), window.bottom() - box.height())));
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 200));
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignCenter, text);
    painter.restore();
}

} // namespace PolylinePainting
