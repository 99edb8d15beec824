#include "support/ToolRunner.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString writeFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes) {
    QFile out(dir.filePath(name));
    out.open(QIODevice::WriteOnly);
    out.write(bytes);
    return out.fileName();
}

} // namespace

TEST(PoiTool, ReadPrintsThePointsAsListed) {
    QTemporaryDir dir;
    // Ottawa, a comment, Munich with a CP-1252 name, a point the program drops (20 S 60 W).
    const QString asc = writeFile(
        dir, "a.asc", "-75.75,45.5,\"Bank, Street\"\n;x\n11.5,48.125,\"M\xFCnchen\"\n-60,-20,\"Drop\"\n");
    const ToolResult result = runTool({"--root", dir.path(), "poi", "read", asc});
    EXPECT_EQ(result.exitCode, 0);
    // Munich's name offset leaves out the comment line: 27 + 12 points into its own line, at "25,".
    EXPECT_EQ(result.out, "lon,lat,name_offset,name\n-75.75,45.5,12,\"\"\"Bank, Street\"\"\"\n"
                          "11.5,48.125,39,\"25,\"\"M\xC3\xBCnchen\"\"\"\n");
}

TEST(PoiTool, NearestPrintsThePageList) {
    QTemporaryDir dir;
    const QString asc = writeFile(dir, "a.asc", "-75.75,45.5,\"Bank, Street\"\n11.5,48.125,\"M\xFCnchen\"\n");
    const struct {
        QStringList args;
        std::vector<std::pair<double, const char*>> rows; // km, then the rest of the row
    } cases[] = {
        {{"--lon", "11.5", "--lat", "48.1", "--radius", "25 km"}, {{2.778, "0,,a.asc,1"}}},
        {{"--lon", "11.5", "--lat", "48.1", "--radius", "25 km", "--names"},
         {{2.778, "0,\"\"\"M\xC3\xBCnchen\"\"\",a.asc,1"}}},
        {{"--lon", "-75.75", "--lat", "45.4", "--radius", "50 km", "--sort", "-2", asc},
         {{11.112, "0,,a.asc,0"}, {11.112, "0,,a.asc,0"}}},
        {{"--lon", "50", "--lat", "10", "--radius", "25 km"}, {}}, // east of the latitude: nothing
        // "all" passes the fourth test too; distances and courses as `geo dist` gives them
        {{"--lon", "50", "--lat", "10", "--radius", "all", "--sort", "-1"},
         {{11803.85, "323,,a.asc,0"}, {5547.92, "327,,a.asc,1"}}},
    };
    for (const auto& c : cases) {
        const ToolResult result = runTool(QStringList{"--root", dir.path(), "poi", "nearest", asc} + c.args);
        const QString legend = c.args.join(' ');
        EXPECT_EQ(result.exitCode, 0) << legend.toStdString() << result.err.toStdString();
        QList<QByteArray> lines = result.out.split('\n');
        ASSERT_EQ(lines.takeFirst(), "km,course,name,file,index");
        ASSERT_EQ(lines.takeLast(), "");
        ASSERT_EQ(size_t(lines.size()), c.rows.size()) << legend.toStdString();
        for (size_t i = 0; i < c.rows.size(); ++i) {
            const qsizetype comma = lines[i].indexOf(',');
            EXPECT_NEAR(lines[i].left(comma).toDouble(), c.rows[i].first, 0.1) << legend.toStdString();
            EXPECT_EQ(lines[i].mid(comma + 1), c.rows[i].second) << legend.toStdString();
        }
    }
}

TEST(PoiTool, BadInputAndUsage) {
    QTemporaryDir dir;
    const QString ov2 = writeFile(dir, "p.ov2", QByteArray("\x02\x0D\0\0\0\x40\x42\x0F\0\x40\x4B\x4C\0", 13));
    const struct {
        QStringList args;
        int exitCode;
        const char* firstError; // what the first line of stderr names
    } cases[] = {
        {{"read", dir.filePath("missing.ov2")}, 1, "missing.ov2"},
        {{"read", dir.path()}, 1, "cannot read"},
        {{"read"}, 2, "missing"},
        {{"nearest", ov2, "--lon", "1", "--lat", "2"}, 2, "--radius"},
        {{"nearest", ov2, "--lon", "east", "--lat", "2", "--radius", "all"}, 2, "east"},
        {{"nearest", ov2, "--lon", "1", "--lat", "2", "--radius", "all", "--sort", "4"}, 2, "--sort"},
        {{"nearest", "--lon", "1", "--lat", "2", "--radius", "all"}, 2, "missing"},
        {{"nearest", ov2, dir.filePath("gone.asc"), "--lon", "1", "--lat", "2", "--radius", "all"},
         1,
         "gone.asc"},
        {{"convert", ov2, dir.filePath("p.kml")}, 2, "p.kml"},
        {{"convert", ov2}, 2, "missing"},
        {{"convert", dir.filePath("bad.gpx"), dir.filePath("out.ov2")}, 1, "line 2"},
        {{"convert", dir.filePath("gone.csv"), dir.filePath("out.ov2")}, 1, "gone.csv"},
        {{"locate"}, 2, "locate"},
    };
    writeFile(dir, "bad.gpx", "<gpx>\n<wpt lat=\"48\"/>\n</gpx>\n");
    for (const auto& c : cases) {
        const ToolResult result = runTool(QStringList{"--root", dir.path(), "poi"} + c.args);
        EXPECT_EQ(result.exitCode, c.exitCode) << c.args.join(' ').toStdString();
        EXPECT_TRUE(result.err.left(result.err.indexOf('\n')).contains(c.firstError))
            << c.args.join(' ').toStdString() << ": " << result.err.toStdString();
        EXPECT_TRUE(result.out.isEmpty()) << c.args.join(' ').toStdString();
    }
    EXPECT_FALSE(QFile::exists(dir.filePath("out.ov2"))) << "nothing is half-written";
}

TEST(PoiTool, ConvertWritesEveryPoint) {
    QTemporaryDir dir;
    // 20 S 60 W is not listed by the program, yet converted; the comment does not move a name here.
    const QString asc = writeFile(dir, "a.asc", ";x\n-60,-20,\"Süd\"\n11.5,48.125,\"M\xFCnchen\"\n");
    const ToolResult convert = runTool({"--root", dir.path(), "poi", "convert", asc, dir.filePath("b.csv")});
    EXPECT_EQ(convert.exitCode, 0) << convert.err.toStdString();
    EXPECT_EQ(convert.out, "{\"read\":2,\"written\":2}\n");
    QFile csv(dir.filePath("b.csv"));
    ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
    EXPECT_EQ(csv.readAll(), "lon,lat,name\n-60,-20,S\xC3\xBC"
                             "d\n11.5,48.125,M\xC3\xBCnchen\n");
}
