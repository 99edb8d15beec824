#include "maps/OziMapFile.h"

#include "maps/MapCalibration.h"
#include "maps/MapPaths.h"
#include "nav/GeoConstants.h"
#include "nav/Utm.h"

#include <QStringList>
#include <cmath>
#include <optional>

namespace {

constexpr int kOziPointSlots = 30;

std::optional<double> number(const QString& field) {
    bool ok = false;
    const double value = field.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<int> pixel(const QString& field) {
    const auto value = number(field);
    if (!value || std::abs(*value) > 1e9) return std::nullopt;
    return int(std::lround(*value));
}

bool inRange(double lon, double lat) {
    return std::abs(lon) <= 180.0 && std::abs(lat) <= 90.0;
}

// "Point01,xy,X,Y,in, deg,LATDEG,LATMIN,N,LONDEG,LONMIN,E, grid,ZONE,EASTING,NORTHING,N": the position
// in degrees and minutes, or else on the UTM grid.
std::optional<ImportPoint> pointOf(const QStringList& f, std::optional<UtmGridValue>& grid) {
    grid.reset();
    if (f.size() < 12) return std::nullopt;
    const auto x = pixel(f[2]), y = pixel(f[3]);
    if (!x || !y) return std::nullopt;
    const auto latDeg = number(f[6]), latMin = number(f[7]), lonDeg = number(f[9]), lonMin = number(f[10]);
    if (latDeg && latMin && lonDeg && lonMin) {
        double lat = std::abs(*latDeg) + *latMin / 60.0, lon = std::abs(*lonDeg) + *lonMin / 60.0;
        if (f[8].trimmed().startsWith('S', Qt::CaseInsensitive)) lat = -lat;
        if (f[11].trimmed().startsWith('W', Qt::CaseInsensitive)) lon = -lon;
        if (!inRange(lon, lat)) return std::nullopt;
        return ImportPoint{Point{*x, *y}, lon, lat};
    }
    if (f.size() < 17) return std::nullopt;
    const auto zone = number(f[13]), easting = number(f[14]), northing = number(f[15]);
    if (!zone || !easting || !northing) return std::nullopt;
    const char hemisphere = f[16].trimmed().startsWith('S', Qt::CaseInsensitive) ? 'S' : 'N';
    double lat, lon;
    if (std::abs(*zone) > 60 || UtmToGeodetic(int32_t(*zone), hemisphere, *easting, *northing, lat, lon) &
                                    (UtmError::Zone | UtmError::Hemisphere | UtmError::Latitude))
        return std::nullopt;
    grid = UtmGridValue{int(*zone), hemisphere, *easting, *northing};
    return ImportPoint{Point{*x, *y}, lon * RadToDeg, lat * RadToDeg};
}

bool isWgs84(const QString& datum) {
    QString compact = datum.trimmed().toUpper();
    compact.remove(' ');
    return compact == QLatin1String("WGS84");
}

QString degreesMinutes(double value, char positive, char negative, int degreeWidth) {
    const double magnitude = std::abs(value);
    double degrees = std::floor(magnitude);
    double minutes = (magnitude - degrees) * 60.0;
    if (QString::number(minutes, 'f', 6) == QLatin1String("60.000000")) degrees += 1.0, minutes = 0.0;
    return QStringLiteral("%1,%2,%3")
        .arg(int(degrees), degreeWidth)
        .arg(minutes, 10, 'f', 6)
        .arg(QChar(value < 0 ? negative : positive));
}

} // namespace

bool ReadOziMap(const QByteArray& bytes, OziMapData& map, QString& error) {
    map = OziMapData();
    const QStringList lines = QString::fromLatin1(bytes).split('\n');
    if (lines.size() < 5 || !lines[0].trimmed().startsWith(QLatin1String("OziExplorer Map Data File"))) {
        error = QStringLiteral("not an OziExplorer .map file");
        return false;
    }
    map.strImageName = MapPaths::FileNamePart(lines[2].trimmed());
    map.strDatum = lines[4].section(',', 0, 0).trimmed();
    if (!isWgs84(map.strDatum)) {
        error = QStringLiteral("the map's datum is \"%1\", not WGS 84; convert it to WGS 84 first")
                    .arg(map.strDatum);
        return false;
    }
    std::vector<std::optional<Point>> cornerPixels(4);
    std::vector<std::optional<std::pair<double, double>>> cornerPositions(4);
    for (const QString& raw : lines) {
        const QStringList f = raw.trimmed().split(',');
        const QString tag = f[0].trimmed();
        if (tag.startsWith(QLatin1String("Point")) && tag.mid(5).toInt() >= 1 &&
            tag.mid(5).toInt() <= kOziPointSlots) {
            std::optional<UtmGridValue> grid;
            if (const auto point = pointOf(f, grid)) map.points.push_back(*point), map.grid.push_back(grid);
        } else if (tag == QLatin1String("IWH") && f.size() >= 4) {
            const auto w = pixel(f[2]), h = pixel(f[3]);
            if (w && h) map.size = Size{*w, *h};
        } else if ((tag == QLatin1String("MMPXY") || tag == QLatin1String("MMPLL")) && f.size() >= 4) {
            const int corner = f[1].trimmed().toInt() - 1;
            if (corner < 0 || corner > 3) continue;
            if (tag == QLatin1String("MMPXY")) {
                const auto x = pixel(f[2]), y = pixel(f[3]);
                if (x && y) cornerPixels[corner] = Point{*x, *y};
            } else if (const auto lon = number(f[2]), lat = number(f[3]); lon && lat && inRange(*lon, *lat)) {
                cornerPositions[corner] = std::pair{*lon, *lat};
            }
        }
    }
    // Corners 1..4 are top-left, top-right, bottom-right and bottom-left when "MMPXY" does not say.
    const Point defaults[4] = {{0, 0}, {map.size.cx, 0}, {map.size.cx, map.size.cy}, {0, map.size.cy}};
    for (int i = 0; i < 4; ++i)
        if (cornerPositions[i])
            map.corners.push_back(ImportPoint{cornerPixels[i].value_or(defaults[i]),
                                              cornerPositions[i]->first, cornerPositions[i]->second});
    return true;
}

QByteArray WriteOziMap(const MapCalibration& map) {
    const Size size = map.MapSize();
    QStringList out = {
        QStringLiteral("OziExplorer Map Data File Version 2.2"),
        MapPaths::BaseName(map.MapFile()),
        MapPaths::FileNamePart(map.MapFile()),
        QStringLiteral("1 ,Map Code,"),
        QStringLiteral("WGS 84,WGS 84,   0.0000,   0.0000,WGS 84"),
        QStringLiteral("Reserved 1"),
        QStringLiteral("Reserved 2"),
        QStringLiteral("Magnetic Variation,,,E"),
        QStringLiteral("Map Projection,Latitude/Longitude,PolyCal,No,AutoCalOnly,No,BSBUseWPX,No"),
    };
    for (int i = 0; i < kOziPointSlots; ++i) {
        const QString tag = QStringLiteral("Point%1,xy,").arg(i + 1, 2, 10, QChar('0'));
        double lon, lat;
        if (!map.GetPointGeo(i, lon, lat)) {
            out << tag + QStringLiteral(
                             "     ,     ,in, deg,    ,          ,N,    ,          ,E, grid,   ,           ,"
                             "           ,N");
            continue;
        }
        const Point p = map.GetPointPixel(i);
        out << tag + QStringLiteral("%1,%2,in, deg,%3,%4, grid,   ,           ,           ,N")
                         .arg(p.x, 5)
                         .arg(p.y, 5)
                         .arg(degreesMinutes(lat, 'N', 'S', 4), degreesMinutes(lon, 'E', 'W', 4));
    }
    out << QStringLiteral("Projection Setup,,,,,,,,,,")
        << QStringLiteral("Map Feature = MF ; Map Comment = MC     These follow if they exist")
        << QStringLiteral("Track File = TF      These follow if they exist")
        << QStringLiteral("Moving Map Parameters = MM?    These follow if they exist")
        << QStringLiteral("MM0,Yes") << QStringLiteral("MMPNUM,4");
    const Point corners[4] = {{0, 0}, {size.cx, 0}, {size.cx, size.cy}, {0, size.cy}};
    for (int i = 0; i < 4; ++i)
        out << QStringLiteral("MMPXY,%1,%2,%3").arg(i + 1).arg(corners[i].x).arg(corners[i].y);
    for (int i = 0; i < 4; ++i) {
        double lon, lat;
        map.PixelToGeo(corners[i].x, corners[i].y, lon, lat);
        out << QStringLiteral("MMPLL,%1,%2,%3").arg(i + 1).arg(lon, 11, 'f', 6).arg(lat, 11, 'f', 6);
    }
    out << QStringLiteral("MM1B,%1").arg(map.MetersPerPixel(), 0, 'f', 6)
        << QStringLiteral("MOP,Map Open Position,0,0")
        << QStringLiteral("IWH,Map Image Width/Height,%1,%2").arg(size.cx).arg(size.cy);
    return (out.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
}
