#include "support/Files.h"
#include "support/ToolRunner.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// The rest of the poi command is in tests/data/nav/commands.txt; a transcript cannot show a written file.
TEST(PoiTool, ConvertWritesEveryPoint) {
    QTemporaryDir dir;
    // 20 S 60 W is not listed by the program, yet converted; the comment does not move a name here.
    const QString asc = writeFile(dir.filePath("a.asc"), ";x\n-60,-20,\"Süd\"\n11.5,48.125,\"M\xFCnchen\"\n");
    const ToolResult convert = runTool({"--root", dir.path(), "poi", "convert", asc, dir.filePath("b.csv")});
    EXPECT_EQ(convert.exitCode, 0) << convert.err.toStdString();
    EXPECT_EQ(convert.out, "{\"read\":2,\"written\":2}\n");
    EXPECT_EQ(readFile(dir.filePath("b.csv")), "lon,lat,name\n-60,-20,S\xC3\xBC"
                                               "d\n11.5,48.125,M\xC3\xBCnchen\n");
}
