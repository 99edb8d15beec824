#include "support/Golden.h"
#include "support/TestData.h"
#include "support/ToolRunner.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QString kKey = QStringLiteral("HKCU\\SOFTWARE\\Omvale\\Fendix");

struct Step {
    const char* legend;
    QStringList args;
    int exitCode;
    const char* out; // nullptr: not checked
};

void runSteps(const QString& root, const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        const ToolResult result = runTool(QStringList{"--root", root} + step.args);
        EXPECT_EQ(result.exitCode, step.exitCode) << step.legend << ": " << result.err.toStdString();
        if (step.out) {
            EXPECT_EQ(result.out, step.out) << step.legend;
        }
    }
}

} // namespace

TEST(Tool, RegCommands) {
    QTemporaryDir dir;
    const QString reg = dir.filePath("out.reg");
    runSteps(dir.filePath("a"),
             {
                 {"set string", {"reg", "set", kKey, "CurrentView", "--type", "sz", "Höhenansicht"}, 0, ""},
                 {"set dword", {"reg", "set", kKey, "Speed", "--type", "dword", "0x12c0"}, 0, ""},
                 {"set binary", {"reg", "set", kKey, "SpeedVol", "--type", "binary", "01,ff"}, 0, ""},
                 {"get string", {"reg", "get", kKey, "currentview"}, 0, "Höhenansicht\n"},
                 {"get dword",
                  {"reg", "get", "HKEY_CURRENT_USER\\software\\omvale\\fendix", "Speed"},
                  0,
                  "4800\n"},
                 {"get binary", {"reg", "get", kKey, "SpeedVol"}, 0, "01ff\n"},
                 {"get missing", {"reg", "get", kKey, "Nope"}, 1, ""},
                 {"bad dword", {"reg", "set", kKey, "Speed", "--type", "dword", "fast"}, 1, ""},
                 {"bad root", {"reg", "get", "HKXX\\A", "x"}, 2, ""},
                 {"no verb", {"reg"}, 2, ""},
                 {"export", {"reg", "export", kKey, reg}, 0, ""},
             });
    runSteps(dir.filePath("b"),
             {
                 {"import into an empty hive", {"reg", "import", reg}, 0, ""},
                 {"same values",
                  {"reg", "list", kKey},
                  0,
                  "name,type,value\nCurrentView,sz,Höhenansicht\nSpeed,dword,4800\nSpeedVol,binary,01ff\n"},
                 {"delete value", {"reg", "delete", kKey, "Speed"}, 0, ""},
                 {"delete tree", {"reg", "delete", "HKCU\\SOFTWARE"}, 0, ""},
                 {"gone", {"reg", "list", kKey}, 1, ""},
                 {"import garbage", {"reg", "import", dir.filePath("a/registry.db")}, 1, ""},
             });
}

TEST(Tool, IniCommands) {
    QTemporaryDir dir;
    const QString ini = dir.filePath("page.ini");
    QFile file(ini);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[Global]\nName = Seite\nbgcolor=Color(1,2,3)\nd = 48,5\nr = RECT(1,2)\nm = a|b\nl = x\"y\"\n");
    file.close();
    runSteps(dir.path(),
             {
                 {"string", {"ini", "get", ini, "Global", "name"}, 0, "Seite\n"},
                 {"color", {"ini", "get", ini, "Global", "BGColor", "--as", "color"}, 0, "1,2,3\n"},
                 {"double with comma", {"ini", "get", ini, "Global", "d", "--as", "double"}, 0, "48.5\n"},
                 {"float stops at comma", {"ini", "get", ini, "Global", "d", "--as", "float"}, 0, "48\n"},
                 {"rect", {"ini", "get", ini, "Global", "r", "--as", "rect"}, 0, "1,2,0,0\n"},
                 {"multiline", {"ini", "get", ini, "Global", "m", "--as", "multiline"}, 0, "a\nb\n"},
                 {"list", {"ini", "get", ini, "Global", "l", "--as", "list"}, 0, "x\ny\n"},
                 {"missing key", {"ini", "get", ini, "Global", "nope"}, 1, ""},
                 {"section case", {"ini", "get", ini, "global", "name"}, 1, ""},
                 {"bad kind", {"ini", "get", ini, "Global", "name", "--as", "blob"}, 2, ""},
                 {"set point", {"ini", "set", ini, "New", "p", "3,4", "--as", "point"}, 0, ""},
                 {"set flag", {"ini", "set", ini, "Global", "f", "1", "--as", "flag"}, 0, ""},
             });
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    expectMatchesGolden(testDataDir() + "/settings/page.ini.after-set", file.readAll());
}
