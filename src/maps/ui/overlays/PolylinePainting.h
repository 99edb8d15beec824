#pragma once

#include <QColor>
#include <QPolygonF>
#include <functional>

class QPainter;
class ScreenProjection;

// The lines of the overlays, drawn on the screen in pixels.
namespace PolylinePainting {

// A polyline through (lon, lat) positions in one colour, `width` pixels wide, with a light halo so
// that it stands out on any map.
void DrawLine(QPainter& painter, const ScreenProjection& projection, const QPolygonF& geo,
              const QColor& colour, double width);
// The same, each segment in the colour `colourOf` gives for the index of its first position.
void DrawColouredLine(QPainter& painter, const ScreenProjection& projection, const QPolygonF& geo,
                      const std::function<QColor(int)>& colourOf, double width);
// Numbers beside positions ("0", "1", ...), leaving out those that would crowd the one before.
void DrawNumbers(QPainter& painter, const ScreenProjection& projection, const QPolygonF& geo,
                 const QColor& colour);
// Text on a light box with its top left at `at`, kept inside the painter's window.
void DrawLabel(QPainter& painter, QPointF at, const QString& text, const QColor& colour);

} // namespace PolylinePainting
