// UTM, UPS and MGRS against GeographicLib's GeoConvert (a test-only oracle), over a seeded set of points
// covering the globe, the zone edges, the Norway and Svalbard exceptions, the band edges at 72 and 84
// degrees, the equator and both polar caps. One GeoConvert process per output kind, all points on stdin.
#include "nav/GeoConstants.h"
#include "nav/Mgrs.h"
#include "nav/PolarStereographic.h"
#include "nav/Utm.h"
#include "nav/Wgs84.h"

#include <QProcess>
#include <QStandardPaths>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

struct Point {
    double lat, lon; // degrees
};

double uniform(std::mt19937& random, double low, double high) {
    return low + (high - low) * (random() / 4294967296.0);
}

std::vector<Point> testPoints() {
    std::mt19937 random(4);
    std::vector<Point> points = {{0, 0},   {90, 0},    {-90, 0}, {84, 10},
                                 {72, 10}, {-80, -30}, {56, 3},  {64, 11}};
    const double offsets[] = {1e-7, 1e-4, 0.01, 0.5};
    auto nearEdge = [&](double edge) { return edge + offsets[random() % 4] * (random() % 2 ? 1 : -1); };
    for (int i = 0; i < 10000; ++i) {
        double lat = uniform(random, -90, 90), lon = uniform(random, -180, 180);
        switch (i % 8) {
        case 0: // zone edges
            lat = uniform(random, -80, 84), lon = nearEdge(6.0 * (1 + random() % 59) - 180);
            break;
        case 1: // Norway
            lat = uniform(random, 55, 65), lon = uniform(random, -1, 13);
            break;
        case 2: // Svalbard
            lat = uniform(random, 71, 84.5), lon = uniform(random, -1, 43);
            break;
        case 3: // band edges
            lat = nearEdge(random() % 2 ? 72 : 84);
            break;
        case 4: // equator
            lat = nearEdge(0);
            break;
        case 5: // polar caps
            lat = random() % 2 ? uniform(random, 84, 90) : uniform(random, -90, -80);
            break;
        }
        points.push_back({lat, lon});
    }
    return points;
}

// GeoConvert's answer for every point, one line each; empty when it is not installed.
QStringList geoConvert(const QString& program, const QStringList& args, const std::vector<Point>& points) {
    QByteArray input;
    for (const Point& p : points)
        input += QByteArray::number(p.lat, 'f', 15) + ' ' + QByteArray::number(p.lon, 'f', 15) + '\n';
    QProcess process;
    process.start(program, args);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(60000);
    return QString::fromLatin1(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

struct GridAnswer {
    int zone = 0;        // 0 for UPS
    char hemisphere = 0; // 'N' or 'S'
    double easting = 0, northing = 0;
};

// "05s 673807.726508856 9999988.942860220" (UTM) or "n 2000000.000000000 2000000.000000000" (UPS)
GridAnswer parseGrid(const QString& line) {
    const QStringList f = line.split(' ', Qt::SkipEmptyParts);
    const QString zone = f.value(0);
    return {zone.chopped(1).toInt(), zone.right(1).toUpper().at(0).toLatin1(), f.value(1).toDouble(),
            f.value(2).toDouble()};
}

QString digits(double metres) {
    return QString::asprintf("%05ld", static_cast<long>(std::fmod(metres, 100000.0)));
}

} // namespace

TEST(GeoConvertOracle, UtmUpsAndMgrsAgree) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("GeoConvert"));
    if (program.isEmpty()) GTEST_SKIP() << "GeoConvert (geographiclib-tools) is not installed";
    const std::vector<Point> points = testPoints();
    const QStringList grid = geoConvert(program, {"-u", "-p", "9"}, points);
    const QStringList mgrsLines = geoConvert(program, {"-m", "-p", "0"}, points);
    ASSERT_EQ(grid.size(), qsizetype(points.size()));
    ASSERT_EQ(mgrsLines.size(), qsizetype(points.size()));
    const PolarStereographic ups(Wgs84::kSemiMajorAxis, Wgs84::kFlattening, 0.994);

    int sameZone = 0, polar = 0, lettersCompared = 0, roundedAwayFromGeoConvert = 0;
    for (size_t i = 0; i < points.size(); ++i) {
        const Point& p = points[i];
        const QString where = QStringLiteral("%1 %2").arg(p.lat, 0, 'g', 17).arg(p.lon, 0, 'g', 17);
        const GridAnswer oracle = parseGrid(grid[i]);
        const double lat = p.lat * DegToRad, lon = p.lon * DegToRad;
        int32_t zone = 0;
        char hemisphere = 0;
        double easting = 0, northing = 0;
        if (oracle.zone == 0) {
            double x = 0, y = 0;
            ups.forward(oracle.hemisphere == 'N', lat, lon, x, y);
            EXPECT_NEAR(2e6 + x, oracle.easting, 1e-3) << where.toStdString();
            EXPECT_NEAR(2e6 + y, oracle.northing, 1e-3) << where.toStdString();
            ++polar;
        } else if ((GeodeticToUtm(lat, lon, zone, hemisphere, easting, northing) & 3) == 0 &&
                   oracle.zone == zone && oracle.hemisphere == hemisphere) {
            EXPECT_NEAR(easting, oracle.easting, 1e-3) << where.toStdString();
            EXPECT_NEAR(northing, oracle.northing, 1e-3) << where.toStdString();
            // The inverse from GeoConvert's metres: our own forward shifts west longitudes by 1e-10 rad.
            double latBack = 0, lonBack = 0;
            UtmToGeodetic(zone, hemisphere, oracle.easting, oracle.northing, latBack, lonBack);
            EXPECT_NEAR(latBack * RadToDeg, p.lat, 1e-9) << where.toStdString();
            EXPECT_NEAR(std::remainder(lonBack * RadToDeg - p.lon, 360.0), 0.0, 1e-9) << where.toStdString();
            ++sameZone;
        } else {
            // Only a hair's breadth from a zone or band edge may the two choose differently.
            const double toMeridian = std::abs(std::remainder(p.lon, 3.0));
            const double toParallel =
                std::min({std::abs(p.lat - 56), std::abs(p.lat - 64), std::abs(p.lat - 72), std::abs(p.lat)});
            EXPECT_TRUE(toMeridian < 1e-6 || toParallel < 1e-6)
                << where.toStdString() << " " << grid[i].toStdString();
            continue;
        }

        // MGRS where both use the same projection: the same letters unless rounding to the metre steps
        // into the next 100 km square; the digits are GeoConvert's full-precision metres rounded half to
        // even (GeoConvert truncates). Within a millimetre of a half metre the 1e-10 rad shift of west
        // longitudes may tip the rounding, so those few are left out.
        if ((p.lat > 84 || p.lat < -80) != (oracle.zone == 0)) continue;
        const auto nearHalf = [](double metres) {
            return std::abs(metres - std::floor(metres) - 0.5) < 1e-3;
        };
        if (nearHalf(oracle.easting) || nearHalf(oracle.northing)) continue;
        QByteArray mgrs;
        ASSERT_EQ(GeodeticToMgrs(lat, lon, 5, mgrs), 0) << where.toStdString();
        const QString ours = QString::fromLatin1(mgrs).trimmed();
        const QString theirs = mgrsLines[i];
        const double roundedE = std::nearbyint(oracle.easting);
        // A northing that rounds to 10000000 m is written as 9999999, just south of the equator.
        const double roundedN = std::min(std::nearbyint(oracle.northing), 9999999.0);
        if (std::floor(roundedE / 1e5) == std::floor(oracle.easting / 1e5) &&
            std::floor(roundedN / 1e5) == std::floor(oracle.northing / 1e5)) {
            EXPECT_EQ(ours.chopped(10), theirs.chopped(10)) << where.toStdString();
            ++lettersCompared;
        }
        EXPECT_EQ(ours.right(10), digits(roundedE) + digits(roundedN)) << where.toStdString();
        if (ours.right(10) != theirs.right(10)) ++roundedAwayFromGeoConvert;
    }
    EXPECT_GT(sameZone, 7000) << "most points are compared in the same UTM zone";
    EXPECT_GT(polar, 1000) << "the polar caps are compared";
    EXPECT_GT(lettersCompared, 8500);
    EXPECT_GT(roundedAwayFromGeoConvert, 3000) << "rounding, not truncation, decides the digits";
}
