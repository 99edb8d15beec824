#include "MapToolSupport.h"

#include "maps/MapCalibration.h"
#include "maps/MapImageLoader.h"

#include <QFileInfo>
#include <cmath>

namespace {

QString jsonArray(const CMatrix& matrix) {
    QStringList values;
    for (double value : matrix.Values())
        values << ToolContext::number(value);
    return '[' + values.join(',') + ']';
}

QString residualsJson(const CalibrationQuality& quality) {
    QStringList items;
    for (const PointResidual& r : quality.residuals)
        items << QStringLiteral("{\"dx_px\":%1,\"dy_px\":%2,\"m\":%3}")
                     .arg(ToolContext::number(r.dDxPixels), ToolContext::number(r.dDyPixels),
                          ToolContext::number(r.dMetres));
    return '[' + items.join(',') + ']';
}

} // namespace

std::optional<Size> parseSizeOption(const QString& text) {
    const QStringList parts = text.split(',');
    bool okWidth = false, okHeight = false;
    const Size size{parts.value(0).toInt(&okWidth), parts.value(1).toInt(&okHeight)};
    if (parts.size() != 2 || !okWidth || !okHeight || size.cx <= 0 || size.cy <= 0) return std::nullopt;
    return size;
}

std::optional<ToolCalibrationPoint> parsePointOption(const QString& text) {
    const QStringList parts = text.split(',');
    if (parts.size() != 4) return std::nullopt;
    bool ok[4] = {};
    ToolCalibrationPoint point{Point{parts[0].toInt(&ok[0]), parts[1].toInt(&ok[1])},
                               parts[2].toDouble(&ok[2]), parts[3].toDouble(&ok[3])};
    if (!ok[0] || !ok[1] || !ok[2] || !ok[3] || !std::isfinite(point.lon) || !std::isfinite(point.lat))
        return std::nullopt;
    return point;
}

void printCalibration(ToolContext& ctx, const MapCalibration& map, const CalibrationQuality& quality) {
    ctx.printJson({{"ok", map.Verify() ? QStringLiteral("true") : QStringLiteral("false")},
                   {"count", QString::number(map.PointCount())},
                   {"geo_to_pixel", jsonArray(map.GeoToPixelMatrix())},
                   {"pixel_to_geo", jsonArray(map.PixelToGeoMatrix())},
                   {"min_lon", ToolContext::number(map.MinLong())},
                   {"min_lat", ToolContext::number(map.MinLat())},
                   {"max_lon", ToolContext::number(map.MaxLong())},
                   {"max_lat", ToolContext::number(map.MaxLat())},
                   {"m_per_px", ToolContext::number(map.MetersPerPixel())},
                   {"residuals", residualsJson(quality)}});
    for (const QString& warning : quality.warnings)
        ctx.err << "tarvik-tool: warning: " << warning << Qt::endl;
}

bool loadCalibrationBeside(const QString& kalPath, std::optional<Size> size, MapCalibration& map) {
    for (const char* extension : {"jpg", "png", "gif", "bmp", "JPG", "PNG", "GIF", "BMP"}) {
        const QString image = kalPath.left(kalPath.size() - 3) + QLatin1String(extension);
        if (kalPath.size() < 5 || !QFileInfo(image).isFile()) continue;
        map.SetMapFile(image);
        const QSize header = ReadImageSize(image);
        if (!size && header.isValid()) size = Size{header.width(), header.height()};
        break;
    }
    if (size) map.SetMapSize(*size);
    return map.LoadCalibration(kalPath);
}
