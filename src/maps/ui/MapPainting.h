#pragma once

#include <QPointF>
#include <QRect>
#include <QString>
#include <vector>

class CMapCatalogue;
class MapCalibration;
class MapViewport;
class QImage;
class QPainter;
class QTransform;

// The layers of the map view, each drawn in screen pixels through the viewport.
namespace MapPainting {

// A round length for the scale bar: 1, 2 or 5 times a power of ten metres, as long as fits into
// `maxPixels` at `metresPerPixel`; its length in pixels and its text ("200 m", "5 km").
struct ScaleBar {
    double dMetres = 0.0;
    double dPixels = 0.0;
    QString strLabel;
};
ScaleBar ChooseScaleBar(double metresPerPixel, double maxPixels);
// "1:25000" for a screen of `dotsPerInch` at `metresPerPixel`, rounded to two significant digits.
QString ScaleRatio(double metresPerPixel, double dotsPerInch);

// White ground, and above the horizon of a perspective view a sky.
void DrawGround(QPainter& painter, const MapViewport& viewport);
// A map's image; `imageToMap` scales a reduced preview up to the map's pixels.
void DrawMapImage(QPainter& painter, const MapViewport& viewport, const MapCalibration& map,
                  const QImage& image, const QTransform& imageToMap, bool smooth);
// The position: an arrow pointing along `headingDeg` (screen degrees clockwise from up), filled
// with a valid fix and hollow without.
void DrawPosition(QPainter& painter, QPointF at, double headingDeg, bool valid, double size);
// The bar (scale type 0 and 1) and the ratio (1 and 2) at the bottom left.
void DrawScale(QPainter& painter, const MapViewport& viewport, int scaleType, double dotsPerInch);
// The outlines of all maps of the catalogue, the current one stronger, and the position, in `area`.
void DrawOverview(QPainter& painter, const CMapCatalogue& catalogue, QPointF position, QRect area);
// The map's calibration points, numbered from 1.
void DrawCalibrationPoints(QPainter& painter, const MapViewport& viewport, const MapCalibration& map);
// Lines of text on a light band at the top of `area`.
void DrawStatus(QPainter& painter, QRect area, const QString& text);

} // namespace MapPainting
