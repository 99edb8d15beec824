#include "maps/WorldFile.h"

#include "maps/MapCalibration.h"
#include "nav/GeoConstants.h"
#include "nav/Utm.h"

#include <QRegularExpression>
#include <QStringList>
#include <cmath>

namespace {

// The spherical Web Mercator of web maps (EPSG:3857): radius 6378137 m.
constexpr double kWebMercatorRadius = 6378137.0;
constexpr double kWebMercatorLimit = 20037508.342789244; // pi * radius

} // namespace

void WorldFile::WorldOf(double x, double y, double& worldX, double& worldY) const {
    // The world file names the centre of the top-left pixel; here the corner is 0.
    const double column = x - 0.5, row = y - 0.5;
    worldX = A * column + B * row + C;
    worldY = D * column + E * row + F;
}

bool ReadWorldFile(const QByteArray& bytes, WorldFile& world, QString& error) {
    const QStringList fields =
        QString::fromLatin1(bytes).split(QRegularExpression("\\s+"), Qt::SkipEmptyParts);
    double values[6];
    for (int i = 0; i < 6; ++i) {
        bool ok = false;
        values[i] = i < fields.size() ? fields[i].toDouble(&ok) : 0.0;
        if (!ok || !std::isfinite(values[i])) {
            error = i < fields.size()
                        ? QStringLiteral("line %1 of the world file is not a number: %2")
                              .arg(i + 1)
                              .arg(fields[i])
                        : QStringLiteral("the world file has %1 numbers, not six").arg(fields.size());
            return false;
        }
    }
    world = WorldFile{values[0], values[1], values[2], values[3], values[4], values[5]};
    if (world.A * world.E - world.B * world.D == 0.0) {
        error = QStringLiteral("the world file's transform is singular");
        return false;
    }
    return true;
}

std::optional<WorldUnits> GuessWorldUnits(const WorldFile& w) {
    if (std::abs(w.C) <= 180.0 && std::abs(w.F) <= 90.0 && std::abs(w.A) < 1.0 && std::abs(w.E) < 1.0)
        return WorldUnits{WorldUnits::Degrees};
    if (std::abs(w.C) <= kWebMercatorLimit && std::abs(w.F) <= kWebMercatorLimit)
        return WorldUnits{WorldUnits::WebMercator};
    return std::nullopt;
}

std::optional<WorldUnits> UtmUnits(const QString& zone) {
    const auto match = QRegularExpression("^\\s*(\\d{1,2})\\s*([NnSs]?)\\s*$").match(zone);
    if (!match.hasMatch()) return std::nullopt;
    const int number = match.captured(1).toInt();
    if (number < 1 || number > 60) return std::nullopt;
    return WorldUnits{WorldUnits::Utm, number, match.captured(2).toUpper() == QLatin1String("S") ? 'S' : 'N'};
}

bool WorldToGeo(const WorldFile& world, const WorldUnits& units, double x, double y, double& lon,
                double& lat) {
    double worldX, worldY;
    world.WorldOf(x, y, worldX, worldY);
    switch (units.kind) {
    case WorldUnits::Degrees:
        lon = worldX, lat = worldY;
        break;
    case WorldUnits::WebMercator:
        lon = worldX / kWebMercatorRadius * RadToDeg;
        lat = (2.0 * std::atan(std::exp(worldY / kWebMercatorRadius)) - Pi / 2.0) * RadToDeg;
        break;
    case WorldUnits::Utm: {
        double latRad, lonRad;
        if (UtmToGeodetic(units.nZone, units.cHemisphere, worldX, worldY, latRad, lonRad) &
            (UtmError::Zone | UtmError::Hemisphere | UtmError::Latitude))
            return false;
        lon = lonRad * RadToDeg, lat = latRad * RadToDeg;
        break;
    }
    }
    return std::isfinite(lon) && std::isfinite(lat) && std::abs(lon) <= 180.0 && std::abs(lat) <= 90.0;
}

std::optional<QByteArray> WriteWorldFile(const MapCalibration& map) {
    if (map.PointCount() != 2 && map.PointCount() != 3) return std::nullopt;
    const CMatrix& p = map.PixelToGeoMatrix();
    const double w = p(2, 2); // 1 for an affine fit, kept general all the same
    const double a = p(0, 0) / w, b = p(0, 1) / w, d = p(1, 0) / w, e = p(1, 1) / w;
    // The centre of the top-left pixel, at (0.5, 0.5) from the corner.
    const double c = (p(0, 0) * 0.5 + p(0, 1) * 0.5 + p(0, 2)) / w;
    const double f = (p(1, 0) * 0.5 + p(1, 1) * 0.5 + p(1, 2)) / w;
    QByteArray text;
    for (double value : {a, d, b, e, c, f})
        text += QByteArray::number(value, 'g', 17) + "\n";
    return text;
}
