#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

namespace {

TEST(SoundTool, ComputesVolumesAndWritesDefaults) {
    TestRoot root;
    const QStringList rootArgs{"--root", root.path()};
    ASSERT_EQ(runTool(rootArgs + QStringList{"reg", "set", "HKCU\\SOFTWARE\\Omvale\\Fendix", "SpeedVol",
                                             "--type", "binary", "01"})
                  .exitCode,
              0);
    const struct {
        const char* legend;
        QStringList args;
        int nExit;
        const char* out;
    } cases[] = {
        {"60 km/h of 120",
         {"sound", "volume", "--speed", "60"},
         0,
         "{\"applies\":true,\"percent\":55,\"wave\":2362215628,\"label\":\"55 % (60 km/h)\"}\n"},
        {"base 75 and muted",
         {"sound", "volume", "--speed", "60", "--base", "75", "--mute"},
         0,
         "{\"applies\":true,\"percent\":0,\"wave\":0,\"label\":\"0 % (60 km/h)\"}\n"},
        {"bad speed", {"sound", "volume", "--speed", "fast"}, 1, ""},
        {"no speed", {"sound", "volume"}, 2, ""},
        {"no sounds yet", {"sound", "bands"}, 0, "kmh,file\n"},
        {"defaults written once",
         {"sound", "defaults"},
         0,
         "file,written\nINFEND,yes\nINFBEG,yes\nLOWBATT,yes\n"},
        {"and kept afterwards", {"sound", "defaults"}, 0, "file,written\nINFEND,no\nINFBEG,no\nLOWBATT,no\n"},
    };
    for (const auto& c : cases) {
        const ToolResult result = runTool(rootArgs + c.args);
        EXPECT_EQ(result.exitCode, c.nExit) << c.legend;
        QString expected = QString::fromLatin1(c.out);
        expected.replace("INFEND", root.file("windows/Infend.wav"))
            .replace("INFBEG", root.file("windows/Infbeg.wav"))
            .replace("LOWBATT", root.file("windows/Lowbatt.wav"));
        EXPECT_EQ(QString::fromUtf8(result.out).toStdString(), expected.toStdString()) << c.legend;
    }
}

} // namespace
