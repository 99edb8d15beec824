#include "maps/MapImport.h"

#include "maps/MapImageLoader.h"
#include "maps/MapPaths.h"
#include "maps/WorldFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

// Twice the largest area of a quadrilateral through the four pixels, over the three ways to join them.
double spannedArea(const ImportPoint* p[4]) {
    const auto cross = [](Point a, Point b) { return double(a.x) * b.y - double(b.x) * a.y; };
    const int orders[3][4] = {{0, 1, 2, 3}, {0, 1, 3, 2}, {0, 2, 1, 3}};
    double best = 0.0;
    for (const auto& order : orders) {
        double sum = 0.0;
        for (int i = 0; i < 4; ++i)
            sum += cross(p[order[i]]->pixel, p[order[(i + 1) % 4]]->pixel);
        best = std::max(best, std::abs(sum));
    }
    return best;
}

bool fitInSomeRotation(std::vector<ImportPoint> set, MapCalibration& map) {
    for (size_t turn = 0; turn < set.size(); ++turn) {
        Point pixels[4];
        double lons[4], lats[4];
        for (size_t i = 0; i < set.size(); ++i)
            pixels[i] = set[i].pixel, lons[i] = set[i].lon, lats[i] = set[i].lat;
        map.SetPoints(int(set.size()), pixels, lons, lats);
        if (map.Verify()) return true;
        std::rotate(set.begin(), set.begin() + 1, set.end());
    }
    return false;
}

QString pointList(const std::vector<size_t>& chosen) {
    QStringList numbers;
    for (size_t i : chosen)
        numbers << QString::number(i + 1);
    return numbers.join(QStringLiteral(", "));
}

bool readFile(const QString& path, QByteArray& bytes, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("cannot read ") + path;
        return false;
    }
    bytes = file.read(1 << 20); // no calibration file is larger
    return true;
}

// `name` in `folder`, in any case when not as written.
QString findInFolder(const QString& folder, const QString& name) {
    if (QFileInfo(folder + name).isFile()) return folder + name;
    for (const QString& entry : QDir(folder.isEmpty() ? QStringLiteral(".") : folder).entryList(QDir::Files))
        if (entry.compare(name, Qt::CaseInsensitive) == 0) return folder + entry;
    return QString();
}

bool imageSize(const QString& image, Size& size, QString& error) {
    const QSize header = ReadImageSize(image);
    if (!header.isValid()) {
        error = QStringLiteral("cannot read the size of the image ") + image;
        return false;
    }
    size = Size{header.width(), header.height()};
    return true;
}

// The fit and the residual of every point; `message` is the reason of a failure or the note which
// points were used.
bool finish(const std::vector<ImportPoint>& points, MapImport& result, QString& message) {
    if (!FitImportPoints(points, result.calibration, message)) return false;
    result.quality = AssessCalibration(result.calibration);
    result.quality.residuals.clear();
    for (const ImportPoint& p : points)
        result.quality.residuals.push_back(ResidualOf(result.calibration, p.pixel, p.lon, p.lat));
    return true;
}

std::vector<Point> cornerPixels(Size size) {
    return {{0, 0}, {size.cx, 0}, {size.cx, size.cy}, {0, size.cy}};
}

// The centre, then the midpoints of the top, right, bottom and left edges.
std::vector<Point> middlePixels(Size size) {
    return {{size.cx / 2, size.cy / 2},
            {size.cx / 2, 0},
            {size.cx, size.cy / 2},
            {size.cx / 2, size.cy},
            {0, size.cy / 2}};
}

// How far the fit is off the file's own projection at these pixels.
void appendChecks(const WorldFile& world, const WorldUnits& units, const std::vector<Point>& pixels,
                  MapImport& result) {
    for (const Point& pixel : pixels) {
        double lon, lat;
        if (WorldToGeo(world, units, pixel.x, pixel.y, lon, lat))
            result.quality.residuals.push_back(ResidualOf(result.calibration, pixel, lon, lat));
    }
}

// OziExplorer fits grid points affinely in the grid's metres: that least-squares fit as a world file,
// when every point (at least three) came from the grid of one zone.
std::optional<std::pair<WorldFile, WorldUnits>> gridAffine(const OziMapData& ozi) {
    if (ozi.points.size() < 3) return std::nullopt;
    CMatrix normal(3, 3);
    double easting[3] = {}, northing[3] = {};
    for (size_t i = 0; i < ozi.points.size(); ++i) {
        const auto& grid = ozi.grid[i];
        if (!grid || grid->nZone != ozi.grid[0]->nZone || grid->cHemisphere != ozi.grid[0]->cHemisphere)
            return std::nullopt;
        const double v[3] = {double(ozi.points[i].pixel.x), double(ozi.points[i].pixel.y), 1.0};
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c)
                normal(r, c) += v[r] * v[c];
            easting[r] += v[r] * grid->dEasting;
            northing[r] += v[r] * grid->dNorthing;
        }
    }
    if (!normal.Invert()) return std::nullopt;
    double e[3], n[3];
    normal.MultiplyVector(easting, e);
    normal.MultiplyVector(northing, n);
    // World files count from the centre of the top-left pixel, half a pixel from the corner.
    const WorldFile world{e[0], n[0], e[1], n[1], e[2] + 0.5 * (e[0] + e[1]), n[2] + 0.5 * (n[0] + n[1])};
    return std::pair{world, WorldUnits{WorldUnits::Utm, ozi.grid[0]->nZone, ozi.grid[0]->cHemisphere}};
}

} // namespace

bool FitImportPoints(const std::vector<ImportPoint>& points, MapCalibration& map, QString& error) {
    if (points.size() < 2) {
        error = QStringLiteral("%1 usable calibration points; at least two are needed").arg(points.size());
        return false;
    }
    if (points.size() <= 4) {
        if (fitInSomeRotation(points, map)) return true;
        error = QStringLiteral("the calibration points do not give a valid fit");
        return false;
    }
    struct Candidate {
        double area;
        std::vector<size_t> indices;
    };
    std::vector<Candidate> candidates;
    const size_t n = points.size();
    for (size_t a = 0; a < n; ++a)
        for (size_t b = a + 1; b < n; ++b)
            for (size_t c = b + 1; c < n; ++c)
                for (size_t d = c + 1; d < n; ++d) {
                    const ImportPoint* four[4] = {&points[a], &points[b], &points[c], &points[d]};
                    candidates.push_back({spannedArea(four), {a, b, c, d}});
                }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& x, const Candidate& y) { return x.area > y.area; });
    for (const Candidate& candidate : candidates) {
        std::vector<ImportPoint> set;
        for (size_t i : candidate.indices)
            set.push_back(points[i]);
        if (fitInSomeRotation(set, map)) {
            error = QStringLiteral("points %1 of %2 used (the largest area)")
                        .arg(pointList(candidate.indices))
                        .arg(n);
            return true;
        }
    }
    error = QStringLiteral("no four of the calibration points give a valid fit");
    return false;
}

bool ImportOziMap(const QString& mapPath, const QString& image, MapImport& result, QString& error) {
    QByteArray bytes;
    OziMapData ozi;
    if (!readFile(mapPath, bytes, error) || !ReadOziMap(bytes, ozi, error)) return false;
    const QString folder = MapPaths::DirectoryPart(mapPath);
    const QString imagePath = image.isEmpty() ? findInFolder(folder, ozi.strImageName) : image;
    if (imagePath.isEmpty()) {
        error =
            QStringLiteral("the image %1 is not in %2; name it with --image").arg(ozi.strImageName, folder);
        return false;
    }
    Size size = ozi.size;
    if ((size.cx <= 0 || size.cy <= 0) && !imageSize(imagePath, size, error)) return false;
    result.calibration = MapCalibration(imagePath);
    result.calibration.SetMapSize(size);
    // The "MMPLL" corners stand in only when no point is usable.
    const std::vector<ImportPoint>& points = ozi.points.empty() ? ozi.corners : ozi.points;
    QString note;
    if (!finish(points, result, note)) {
        error = note;
        return false;
    }
    if (points.size() > 4) result.quality.warnings.prepend(note);
    if (!ozi.points.empty())
        if (const auto grid = gridAffine(ozi)) {
            appendChecks(grid->first, grid->second, cornerPixels(size), result);
            appendChecks(grid->first, grid->second, middlePixels(size), result);
        }
    return true;
}

bool ImportWorldFile(const QString& worldPath, const QString& image, const QString& utmZone,
                     MapImport& result, QString& error) {
    QByteArray bytes;
    WorldFile world;
    if (!readFile(worldPath, bytes, error) || !ReadWorldFile(bytes, world, error)) return false;
    std::optional<WorldUnits> units = utmZone.isEmpty() ? GuessWorldUnits(world) : UtmUnits(utmZone);
    if (!units) {
        error = utmZone.isEmpty()
                    ? QStringLiteral("the world file holds neither degrees nor Web Mercator metres; "
                                     "name the UTM zone with --utm")
                    : QStringLiteral("not a UTM zone: ") + utmZone;
        return false;
    }
    QString imagePath = image;
    const QString suffix = QFileInfo(worldPath).suffix().toLower();
    const QStringList extensions = suffix == "jgw"   ? QStringList{"jpg", "jpeg"}
                                   : suffix == "pgw" ? QStringList{"png"}
                                   : suffix == "gfw" ? QStringList{"gif"}
                                   : suffix == "bpw" ? QStringList{"bmp"}
                                   : suffix == "tfw" ? QStringList{"tif", "tiff"}
                                                     : QStringList{"jpg", "png", "gif", "bmp", "tif"};
    const QString stem = MapPaths::BaseName(worldPath);
    for (qsizetype i = 0; imagePath.isEmpty() && i < extensions.size(); ++i)
        imagePath = findInFolder(MapPaths::DirectoryPart(worldPath), stem + '.' + extensions[i]);
    if (imagePath.isEmpty()) {
        error = QStringLiteral("no image beside %1; name it with --image").arg(worldPath);
        return false;
    }
    Size size;
    if (!imageSize(imagePath, size, error)) return false;
    result.calibration = MapCalibration(imagePath);
    result.calibration.SetMapSize(size);

    // The four corners are the calibration; the centre and the edge midpoints show how far the
    // projective fit in degrees is off the world file's own projection.
    std::vector<ImportPoint> points;
    for (const Point& pixel : cornerPixels(size)) {
        ImportPoint point{pixel};
        if (!WorldToGeo(world, *units, pixel.x, pixel.y, point.lon, point.lat)) {
            error = QStringLiteral("the image corner %1,%2 has no position on the earth")
                        .arg(pixel.x)
                        .arg(pixel.y);
            return false;
        }
        points.push_back(point);
    }
    if (!finish(points, result, error)) return false;
    appendChecks(world, *units, middlePixels(size), result);
    return true;
}
