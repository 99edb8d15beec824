#include "maps/CalibrationQuality.h"

#include "maps/MapCalibration.h"
#include "nav/GeoConstants.h"

#include <cmath>

namespace {

constexpr double kMetresPerDegree = 111120.0;

struct Corner {
    double x, y;
};

// Three points on one line, judged relative to their spread so that degrees and pixels fare alike.
bool collinear(Corner a, Corner b, Corner c) {
    const double cross = (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    const double spread = std::hypot(b.x - a.x, b.y - a.y) * std::hypot(c.x - a.x, c.y - a.y);
    return std::abs(cross) <= 1e-9 * spread;
}

void warnPairs(const MapCalibration& map, QStringList& warnings) {
    double lon[2], lat[2];
    map.GetPointGeo(0, lon[0], lat[0]);
    map.GetPointGeo(1, lon[1], lat[1]);
    const Point p0 = map.GetPointPixel(0), p1 = map.GetPointPixel(1);
    if (lon[0] == lon[1]) warnings << QStringLiteral("points 1 and 2 lie on one meridian");
    if (lat[0] == lat[1]) warnings << QStringLiteral("points 1 and 2 lie on one parallel");
    if (p0.x == p1.x) warnings << QStringLiteral("points 1 and 2 lie in one pixel column");
    if (p0.y == p1.y) warnings << QStringLiteral("points 1 and 2 lie in one pixel row");
}

void warnTriples(const MapCalibration& map, QStringList& warnings) {
    const int n = map.PointCount();
    Corner geo[MapCalibration::kMaxPoints], pixel[MapCalibration::kMaxPoints];
    for (int i = 0; i < n; ++i) {
        map.GetPointGeo(i, geo[i].x, geo[i].y);
        pixel[i] = {double(map.GetPointPixel(i).x), double(map.GetPointPixel(i).y)};
    }
    for (int a = 0; a < n; ++a)
        for (int b = a + 1; b < n; ++b)
            for (int c = b + 1; c < n; ++c) {
                const bool onLine =
                    collinear(geo[a], geo[b], geo[c]) || collinear(pixel[a], pixel[b], pixel[c]);
                if (onLine)
                    warnings << QStringLiteral("points %1, %2 and %3 lie on one line")
                                    .arg(a + 1)
                                    .arg(b + 1)
                                    .arg(c + 1);
            }
}

} // namespace

PointResidual ResidualOf(const MapCalibration& map, Point pixel, double lon, double lat) {
    const double in[3] = {lon, lat, 1.0};
    double out[3];
    map.GeoToPixelMatrix().MultiplyVector(in, out);
    double pixelLon, pixelLat;
    map.PixelToGeo(pixel.x, pixel.y, pixelLon, pixelLat);
    // Locally flat on the sphere of 111.12 km per degree: exact enough for the small distances of a
    // residual, where the great-circle formula drowns in rounding (about 0.1 m for equal points).
    const double northMetres = (pixelLat - lat) * kMetresPerDegree;
    const double eastMetres = (pixelLon - lon) * kMetresPerDegree * std::cos(lat * DegToRad);
    return PointResidual{out[0] / out[2] - pixel.x, out[1] / out[2] - pixel.y,
                         std::hypot(northMetres, eastMetres)};
}

CalibrationQuality AssessCalibration(const MapCalibration& map) {
    CalibrationQuality quality;
    for (int i = 0; i < map.PointCount(); ++i) {
        double lon, lat;
        map.GetPointGeo(i, lon, lat);
        quality.residuals.push_back(ResidualOf(map, map.GetPointPixel(i), lon, lat));
    }
    if (map.PointCount() == 2) warnPairs(map, quality.warnings);
    if (map.PointCount() >= 3) warnTriples(map, quality.warnings);
    if (!map.Verify()) quality.warnings << QStringLiteral("the fit fails its back-conversion test");
    return quality;
}
