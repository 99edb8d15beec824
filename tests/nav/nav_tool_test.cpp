#include "support/ToolRunner.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(NavTool, CoordGeoAndGridCommands) {
    struct Case {
        const char* legend;
        QStringList args;
        int exitCode;
        const char* out;
    } cases[] = {
        {"format",
         {"coord", "format", "48.1234567", "--format", "0", "--lat"},
         0,
         "{\"text\":\"N 48°07.407\"}\n"},
        {"format needs --lat or --lon", {"coord", "format", "48.1"}, 2, ""},
        {"parse", {"coord", "parse", "W 8,5"}, 0, "{\"ok\":true,\"value\":-8.5}\n"},
        {"parse empty", {"coord", "parse", ""}, 0, "{\"ok\":false,\"value\":0}\n"},
        {"distance due north",
         {"geo", "dist", "11", "48", "11", "49"},
         0,
         "{\"km\":111.11999999998892,\"course_rad\":0,\"course_deg\":0}\n"},
        {"destination", {"geo", "dest", "11", "48", "111.12", "360"}, 0, "{\"lon\":11,\"lat\":49}\n"},
        {"not a number", {"geo", "dist", "11", "x", "11", "49"}, 1, ""},
        {"utm",
         {"grid", "utm", "60", "5"},
         0,
         "{\"zone\":32,\"hemisphere\":\"N\",\"easting\":276979.9264010063,\"northing\":6658157.202407251,"
         "\"errors\":0}\n"},
        {"utm beyond 84.5",
         {"grid", "utm", "85", "5"},
         1,
         "{\"zone\":null,\"hemisphere\":null,\"easting\":null,\"northing\":null,\"errors\":1}\n"},
        {"utm inverse",
         {"grid", "utm-inverse", "32", "n", "500000", "0"},
         0,
         "{\"lat\":0,\"lon\":9,\"errors\":0}\n"},
        {"mgrs", {"grid", "mgrs", "48.1", "11.5"}, 0, "{\"mgrs\":\"32UPU8612230438\",\"errors\":0}\n"},
        {"mgrs precision 7", {"grid", "mgrs", "48.1", "11.5", "7"}, 1, "{\"mgrs\":null,\"errors\":8}\n"},
        {"merc", {"grid", "merc", "48", "11"}, 0, "{\"x\":1223146,\"y\":6100035}\n"},
        {"merc-inverse", {"grid", "merc-inverse", "0", "0"}, 0, "{\"lat\":0,\"lon\":0}\n"},
        {"unknown verb", {"grid", "gauss"}, 2, ""},
        {"help", {"grid", "--help"}, 0, nullptr},
    };
    QTemporaryDir dir;
    for (const Case& c : cases) {
        const ToolResult result = runTool(QStringList{"--root", dir.path()} + c.args);
        EXPECT_EQ(result.exitCode, c.exitCode) << c.legend << ": " << result.err.toStdString();
        if (c.out) {
            EXPECT_EQ(result.out.toStdString(), c.out) << c.legend;
        }
    }
}
