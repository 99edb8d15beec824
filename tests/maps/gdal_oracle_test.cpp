// World files and OziExplorer maps against GDAL (gdal-bin, a test-only oracle): the positions GDAL
// gives for image pixels agree with Tarvik's calibration within the residuals Tarvik reports.
#include "maps/MapImport.h"
#include "maps/OziMapFile.h"
#include "maps/WorldFile.h"
#include "support/Files.h"
#include "support/TestData.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace {

const char* const kLonLat = "+proj=longlat +datum=WGS84";

QByteArray run(const QStringList& command, const QByteArray& input) {
    QProcess process;
    process.start(command.first(), command.mid(1));
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(60000);
    return process.readAllStandardOutput();
}

// GDAL's position of each pixel, through the file's georeferencing and then from `srs` (empty: the
// file's coordinates are degrees already) to longitude and latitude.
std::vector<std::pair<double, double>> gdalPositions(const QString& file, const QString& srs,
                                                     const std::vector<Point>& pixels) {
    QByteArray input;
    for (const Point& p : pixels)
        input += QByteArray::number(p.x) + ' ' + QByteArray::number(p.y) + '\n';
    QByteArray output = run({"gdaltransform", file}, input);
    if (!srs.isEmpty()) output = run({"gdaltransform", "-s_srs", srs, "-t_srs", kLonLat}, output);
    std::vector<std::pair<double, double>> positions;
    for (const QByteArray& line : output.split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() >= 2) positions.emplace_back(fields[0].toDouble(), fields[1].toDouble());
    }
    return positions;
}

double largestResidual(const CalibrationQuality& quality) {
    double largest = 0.0;
    for (const PointResidual& r : quality.residuals)
        largest = std::max({largest, std::abs(r.dDxPixels), std::abs(r.dDyPixels)});
    return largest;
}

void expectAgreement(const char* legend, const QString& gdalFile, const QString& srs,
                     const MapImport& imported) {
    const Size size = imported.calibration.MapSize();
    const std::vector<Point> pixels = {
        {0, 0}, {size.cx, 0}, {size.cx, size.cy}, {0, size.cy}, {size.cx / 2, size.cy / 2}};
    const auto positions = gdalPositions(gdalFile, srs, pixels);
    ASSERT_EQ(positions.size(), pixels.size()) << legend;
    const double tolerance = largestResidual(imported.quality) + 1e-6;
    for (size_t i = 0; i < pixels.size(); ++i) {
        const PointResidual r =
            ResidualOf(imported.calibration, pixels[i], positions[i].first, positions[i].second);
        EXPECT_LE(std::abs(r.dDxPixels), tolerance)
            << legend << " pixel " << pixels[i].x << "," << pixels[i].y;
        EXPECT_LE(std::abs(r.dDyPixels), tolerance)
            << legend << " pixel " << pixels[i].x << "," << pixels[i].y;
    }
}

class GdalOracle : public testing::Test {
protected:
    void SetUp() override {
        if (QStandardPaths::findExecutable("gdaltransform").isEmpty())
            GTEST_SKIP() << "gdal-bin is not installed";
        const QDir data(testDataDir() + "/maps/import");
        for (const QString& name : data.entryList(QDir::Files))
            ASSERT_TRUE(QFile::copy(data.filePath(name), m_dir.filePath(name)));
    }
    QString file(const QString& name) const { return m_dir.filePath(name); }
    QTemporaryDir m_dir;
};

} // namespace

TEST_F(GdalOracle, WorldFilesAgreeWithinTheReportedResiduals) {
    const struct {
        const char* legend;
        const char* worldFile;
        const char* image;
        const char* utm;
        const char* srs;       // of the world file's numbers, for GDAL
        double centreResidual; // pixels, at least (the projective fit in degrees meets a projection)
    } cases[] = {
        {"degrees", "world-deg.pgw", "world-deg.png", "", "", 0.0},
        {"Web Mercator metres", "world-merc.pgw", "world-merc.png", "", "EPSG:3857", 0.01},
        {"UTM metres, turned", "world-utm.jgw", "world-utm.jpg", "32N", "EPSG:32632", 0.05},
    };
    for (const auto& c : cases) {
        MapImport imported;
        QString error;
        ASSERT_TRUE(ImportWorldFile(file(c.worldFile), QString(), c.utm, imported, error))
            << c.legend << error.toStdString();
        ASSERT_EQ(imported.quality.residuals.size(), 9u) << c.legend;
        EXPECT_GE(
            std::hypot(imported.quality.residuals[4].dDxPixels, imported.quality.residuals[4].dDyPixels),
            c.centreResidual)
            << c.legend;
        expectAgreement(c.legend, file(c.image), c.srs, imported);
    }
}

TEST_F(GdalOracle, OziExplorerMapsAgreeWithinTheReportedResiduals) {
    const struct {
        const char* legend;
        const char* map;
        const char* srs;
        int residuals;
    } cases[] = {
        {"four points in degrees and minutes", "ozi.map", "", 4},
        {"six points: four fitted, GDAL fits all six", "ozi-many.map", "", 6},
        {"four UTM grid points, then the corners and the middles", "ozi-utm.map", "EPSG:32632", 4 + 9},
    };
    for (const auto& c : cases) {
        MapImport imported;
        QString error;
        ASSERT_TRUE(ImportOziMap(file(c.map), QString(), imported, error)) << c.legend << error.toStdString();
        EXPECT_EQ(imported.quality.residuals.size(), size_t(c.residuals)) << c.legend;
        expectAgreement(c.legend, file(c.map), c.srs, imported);
    }
}

// Both exports of a calibration west of Greenwich and south of the equator, beside a copy of the image.
TEST_F(GdalOracle, ExportsReadBackInGdal) {
    ASSERT_TRUE(QFile::copy(file("ozi.png"), file("south.png")));
    MapImport exported;
    MapCalibration& map = exported.calibration;
    map = MapCalibration(file("south.png"));
    map.SetMapSize(Size{400, 300});
    map.SetPoint(0, Point{0, 300}, -8.0, -47.0);
    map.SetPoint(1, Point{400, 0}, -7.6, -46.7);
    map.SetPoint(2, Point{400, 300}, -7.6, -47.0);
    writeFile(file("south.map"), WriteOziMap(map));
    expectAgreement("OziExplorer export", file("south.map"), "", exported);
    const auto world = WriteWorldFile(map);
    ASSERT_TRUE(world.has_value());
    writeFile(file("south.pgw"), *world);
    expectAgreement("world file export", file("south.png"), "", exported);
}
