#include "maps/shapes/ShapeLayers.h"
#include "support/Files.h"
#include "support/ShapeFiles.h"
#include "support/TestRoot.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

const char* const kWgs84Prj =
    "GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137,"
    "298.257223563]],PRIMEM[\"Greenwich\",0],UNIT[\"Degree\",0.017453292519943295]]";
const char* const kUtmPrj =
    "PROJCS[\"WGS_1984_UTM_Zone_32N\",GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\","
    "SPHEROID[\"WGS_1984\",6378137,298.257223563]]],PROJECTION[\"Transverse_Mercator\"]]";

} // namespace

TEST(ShapeLayer, FindsOnlyTheShapesInTheBox) {
    TestRoot root;
    const QString base = root.file("roads");
    if (!makeShapefile(base, "arc",
                       {{{"11.0 48.0", "11.1 48.1"}, "A1"},
                        {{"12.0 49.0", "12.2 49.0", "12.2 49.2"}, "B2"},
                        {{"11.05 48.02", "11.06 48.03"}, "C3"}}))
        GTEST_SKIP() << "shapelib's tools (Debian package shapelib) are missing";
    writeFile(base + ".prj", kWgs84Prj);
    QString error;
    auto layer = CShapeLayer::Open(base + ".shp", "NAME", error);
    ASSERT_TRUE(layer) << error.toStdString();
    EXPECT_EQ(layer->Count(), 3);
    const struct {
        const char* legend;
        QRectF box;
        QStringList labels;
    } cases[] = {
        {"around the first and third", QRectF(QPointF(10.9, 47.9), QPointF(11.2, 48.2)), {"A1", "C3"}},
        {"touching the second only", QRectF(QPointF(12.1, 49.1), QPointF(12.3, 49.3)), {"B2"}},
        {"all of them", QRectF(QPointF(10, 47), QPointF(13, 50)), {"A1", "B2", "C3"}},
        {"none there", QRectF(QPointF(5, 40), QPointF(6, 41)), {}},
        {"again the first, from the kept shapes",
         QRectF(QPointF(10.9, 47.9), QPointF(11.2, 48.2)),
         {"A1", "C3"}},
    };
    for (const auto& c : cases) {
        QStringList labels;
        for (const Shape* shape : layer->ShapesIn(c.box))
            labels.append(shape->m_strLabel);
        EXPECT_EQ(labels, c.labels) << c.legend;
    }
    const Shape* second = layer->ShapesIn(QRectF(QPointF(12.1, 49.1), QPointF(12.3, 49.3))).front();
    EXPECT_EQ(second->m_kind, Shape::Kind::Lines);
    ASSERT_EQ(second->m_parts.size(), 1u);
    EXPECT_EQ(second->m_parts[0], QPolygonF({QPointF(12.0, 49.0), QPointF(12.2, 49.0), QPointF(12.2, 49.2)}));
}

TEST(ShapeLayer, BadFilesAreSkippedWithAMessage) {
    TestRoot root;
    const struct {
        const char* legend;
        std::function<void(const QString& base)> spoil;
        const char* reason; // in the message; empty: the layer opens
    } cases[] = {
        {"intact, WGS 84 named", [](const QString& b) { writeFile(b + ".prj", kWgs84Prj); }, ""},
        {"truncated .shp",
         [](const QString& b) {
             QFile shp(b + ".shp");
             shp.resize(shp.size() - 20);
         },
         "cannot be read"},
        {"no .shx", [](const QString& b) { QFile::remove(b + ".shx"); }, ".shx or .dbf"},
        {"no .dbf", [](const QString& b) { QFile::remove(b + ".dbf"); }, ".shx or .dbf"},
        {"projected", [](const QString& b) { writeFile(b + ".prj", kUtmPrj); }, "another coordinate system"},
        {"not a shapefile", [](const QString& b) { writeFile(b + ".shp", QByteArray(50, 'x')); },
         "not a readable shapefile"},
    };
    int n = 0;
    for (const auto& c : cases) {
        const QString base = root.file(QStringLiteral("layer%1").arg(n++));
        if (!makeShapefile(base, "polygon",
                           {{{"11.0 48.0", "11.1 48.0", "11.1 48.1", "11.0 48.0"}, "P"},
                            {{"11.2 48.0", "11.3 48.0", "11.3 48.1", "11.2 48.0"}, "Q"}}))
            GTEST_SKIP() << "shapelib's tools (Debian package shapelib) are missing";
        c.spoil(base);
        QString error;
        const auto layer = CShapeLayer::Open(base + ".shp", "NAME", error);
        if (QString(c.reason).isEmpty()) {
            EXPECT_TRUE(layer) << c.legend << ": " << error.toStdString();
            continue;
        }
        EXPECT_FALSE(layer) << c.legend;
        EXPECT_TRUE(error.contains(c.reason)) << c.legend << ": " << error.toStdString();
        EXPECT_TRUE(error.startsWith(QFileInfo(base).fileName() + ".shp: ")) << error.toStdString();
        EXPECT_FALSE(error.contains('\n')) << "one line";
    }
}

TEST(ShapeLayer, ProfileNamesLayersInDrawingOrder) {
    TestRoot root;
    const QString base = root.file("Karten/water");
    QDir().mkpath(root.file("Karten"));
    if (!makeShapefile(base, "point", {{{"11 48"}, "W"}}))
        GTEST_SKIP() << "shapelib's tools (Debian package shapelib) are missing";
    writeFile(root.file("Tarvik.gsh"),
              "[Wasser]\nFile = \\Karten\\water.shp\nColor = Color(0,0,255)\n"
              "Width = 3\nFill = Color(200,220,255)\nLabel = NAME\nMinScale = 0.5\n"
              "MaxScale = 40\n[Ohne Datei]\nColor = Color(1,2,3)\n"
              "[Fehlt]\nFile = Karten/missing.shp\n[Nah]\nFile = Karten/water.shp\n");
    const auto layers = LoadShapeLayers(root.file("Tarvik.gsh"),
                                        [&root](const QString& path) { return root.root().hostPath(path); });
    ASSERT_EQ(layers->m_layers.size(), 2u);
    const ShapeLayerStyle& water = layers->m_layers[0].m_style;
    EXPECT_EQ(water.m_strName, "Wasser");
    EXPECT_EQ(water.m_colLine, makeColour(0, 0, 255));
    EXPECT_EQ(water.m_nWidth, 3);
    EXPECT_EQ(water.m_colFill, makeColour(200, 220, 255));
    EXPECT_EQ(water.m_strLabelField, "NAME");
    EXPECT_TRUE(water.ShowsAt(0.5) && water.ShowsAt(40));
    EXPECT_FALSE(water.ShowsAt(0.4) || water.ShowsAt(41));
    const ShapeLayerStyle& near = layers->m_layers[1].m_style;
    EXPECT_EQ(near.m_strName, "Nah") << "a relative file lies beside the profile";
    EXPECT_FALSE(near.m_colFill) << "no fill without Fill";
    EXPECT_TRUE(near.ShowsAt(1e6));
    EXPECT_EQ(layers->m_messages, QStringList({"Fehlt: missing.shp: file not found"}));
    EXPECT_TRUE(LoadShapeLayers(root.file("none.gsh"), {})->m_layers.empty()) << "no profile, no layers";
}
