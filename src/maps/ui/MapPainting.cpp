#include "maps/ui/MapPainting.h"

#include "maps/CMapCatalogue.h"
#include "maps/MapCalibration.h"
#include "maps/ui/MapViewport.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace MapPainting {

namespace {

const QColor kSky(200, 222, 240);
const QColor kMarker(220, 30, 30);

QPointF throughMatrix(const CMatrix& matrix, double x, double y) {
    const double in[3] = {x, y, 1.0};
    double out[3];
    matrix.MultiplyVector(in, out);
    return QPointF(out[0] / out[2], out[1] / out[2]);
}

// A small font for texts over the map, readable on a handheld and on a desktop.
QFont overlayFont(const QPainter& painter, const QRect& area) {
    QFont font = painter.font();
    font.setPixelSize(std::clamp(std::min(area.width(), area.height()) / 22, 11, 20));
    return font;
}

} // namespace

ScaleBar ChooseScaleBar(double metresPerPixel, double maxPixels) {
    ScaleBar bar;
    if (!(metresPerPixel > 0) || !std::isfinite(metresPerPixel) || !(maxPixels > 0)) return bar;
    const double most = metresPerPixel * maxPixels;
    double power = std::pow(10.0, std::floor(std::log10(most)));
    double metres = power;
    for (const double step : {5.0, 2.0, 1.0})
        if (step * power <= most) {
            metres = step * power;
            break;
        }
    bar.dMetres = metres;
    bar.dPixels = metres / metresPerPixel;
    bar.strLabel =
        metres >= 1000.0 ? QStringLiteral("%1 km").arg(metres / 1000.0) : QStringLiteral("%1 m").arg(metres);
    return bar;
}

QString ScaleRatio(double metresPerPixel, double dotsPerInch) {
    if (!(metresPerPixel > 0) || !(dotsPerInch > 0)) return QString();
    const double ratio = metresPerPixel / (0.0254 / dotsPerInch);
    const double power = std::pow(10.0, std::floor(std::log10(ratio)) - 1);
    return QStringLiteral("1:%1").arg(qint64(std::llround(ratio / power) * power));
}

void DrawGround(QPainter& painter, const MapViewport& viewport) {
    const QRectF all(QPointF(0, 0), viewport.Size());
    painter.fillRect(all, Qt::white);
    if (viewport.Horizon() > 0) {
        const double horizon = viewport.Anchor().y() - viewport.Horizon();
        painter.fillRect(QRectF(0, 0, all.width(), std::max(0.0, horizon)), kSky);
    }
}

void DrawMapImage(QPainter& painter, const MapViewport& viewport, const MapCalibration& map,
                  const QImage& image, const QTransform& imageToMap, bool smooth) {
    // In perspective the ground beyond the horizon never reaches the screen, and the part of the
    // picture behind the viewer is left out by the painter's own clipping of projective shapes.
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    painter.setTransform(imageToMap * viewport.MapToScreen(map));
    painter.drawImage(0, 0, image);
    painter.restore();
}

void DrawPosition(QPainter& painter, QPointF at, double headingDeg, bool valid, double size) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(at);
    painter.rotate(headingDeg);
    QPainterPath arrow;
    arrow.moveTo(0, -size);
    arrow.lineTo(0.65 * size, 0.7 * size);
    arrow.lineTo(0, 0.35 * size);
    arrow.lineTo(-0.65 * size, 0.7 * size);
    arrow.closeSubpath();
    if (valid) {
        painter.setPen(QPen(Qt::white, std::max(1.5, size / 8)));
        painter.setBrush(kMarker);
    } else {
        painter.setPen(QPen(kMarker, std::max(2.0, size / 6)));
        painter.setBrush(Qt::NoBrush);
    }
    painter.drawPath(arrow);
    painter.restore();
}

void DrawScale(QPainter& painter, const MapViewport& viewport, int scaleType, double dotsPerInch) {
    const QRect area(QPoint(0, 0), viewport.Size());
    painter.save();
    painter.setFont(overlayFont(painter, area));
    const int margin = std::max(6, area.height() / 40);
    const int lineHeight = painter.fontMetrics().height();
    double y = area.height() - margin;
    if (scaleType == 1 || scaleType == 2) {
        painter.setPen(Qt::black);
        painter.drawText(QPointF(margin, y - painter.fontMetrics().descent()),
                         ScaleRatio(viewport.Scale(), dotsPerInch));
        y -= lineHeight + 2;
    }
    if (scaleType != 2) {
        const ScaleBar bar = ChooseScaleBar(viewport.Scale(), area.width() / 3.0);
        if (bar.dPixels > 0) {
            const double thick = std::max(4.0, lineHeight / 3.0);
            const QRectF frame(margin, y - thick, bar.dPixels, thick);
            painter.fillRect(frame, Qt::white);
            painter.fillRect(QRectF(frame.left(), frame.top(), frame.width() / 2, thick), Qt::black);
            painter.setPen(Qt::black);
            painter.drawRect(frame);
            painter.drawText(QPointF(margin, frame.top() - 3 - painter.fontMetrics().descent()),
                             bar.strLabel);
        }
    }
    painter.restore();
}

void DrawOverview(QPainter& painter, const CMapCatalogue& catalogue, QPointF position, QRect area) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(area, QColor(255, 255, 255, 215));
    painter.setPen(Qt::darkGray);
    painter.drawRect(area);
    painter.translate(area.topLeft());
    const double k = double(area.width()) / CMapCatalogue::kOverviewPixels;
    painter.scale(k, double(area.height()) / CMapCatalogue::kOverviewPixels);
    const CMatrix& overview = catalogue.OverviewMatrix();
    for (const auto& map : catalogue.Maps()) {
        if (map->PointCount() < 2) continue;
        const Size size = map->MapSize();
        QPolygonF outline;
        for (const QPoint corner :
             {QPoint(0, 0), QPoint(size.cx, 0), QPoint(size.cx, size.cy), QPoint(0, size.cy)}) {
            double lon = 0, lat = 0;
            map->PixelToGeo(corner.x(), corner.y(), lon, lat);
            outline << throughMatrix(overview, lon, lat);
        }
        const bool current = map.get() == catalogue.CurrentMap();
        painter.setPen(QPen(current ? QColor(0, 80, 200) : Qt::darkGray, (current ? 2.0 : 1.0) / k));
        painter.drawPolygon(outline);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(kMarker);
    painter.drawEllipse(throughMatrix(overview, position.x(), position.y()), 2.0, 2.0);
    painter.restore();
}

void DrawCalibrationPoints(QPainter& painter, const MapViewport& viewport, const MapCalibration& map) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(overlayFont(painter, QRect(QPoint(0, 0), viewport.Size())));
    const QTransform toScreen = viewport.MapToScreen(map);
    for (int i = 0; i < map.PointCount(); ++i) {
        const Point pixel = map.GetPointPixel(i);
        const QPointF at = toScreen.map(QPointF(pixel.x, pixel.y));
        painter.setPen(QPen(Qt::white, 4));
        painter.drawLine(at - QPointF(10, 0), at + QPointF(10, 0));
        painter.drawLine(at - QPointF(0, 10), at + QPointF(0, 10));
        painter.setPen(QPen(Qt::magenta, 2));
        painter.drawLine(at - QPointF(10, 0), at + QPointF(10, 0));
        painter.drawLine(at - QPointF(0, 10), at + QPointF(0, 10));
        painter.drawText(at + QPointF(6, -6), QString::number(i + 1));
    }
    painter.restore();
}

void DrawStatus(QPainter& painter, QRect area, const QString& text) {
    if (text.isEmpty()) return;
    painter.save();
    painter.setFont(overlayFont(painter, area));
    const int margin = 6;
    const QRect bounds = painter.fontMetrics().boundingRect(area.adjusted(margin, 0, -margin, 0),
                                                            Qt::TextWordWrap | Qt::AlignLeft, text);
    const QRect band(area.left(), area.top(), area.width(), bounds.height() + 2 * margin);
    painter.fillRect(band, QColor(255, 255, 230, 230));
    painter.setPen(Qt::black);
    painter.drawText(band.adjusted(margin, margin, -margin, -margin), Qt::TextWordWrap | Qt::AlignLeft, text);
    painter.restore();
}

} // namespace MapPainting
