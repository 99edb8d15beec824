#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

namespace {

TEST(SoundTool, ComputesVolumesAndWritesDefaults) {
    TestRoot root;
    const QStringList rootArgs{"--root", root.path()};
    CRegistryKey().WriteFlag("SpeedVol", true);
    const std::tuple<const char*, QStringList, QString> cases[] = {
        {"60 km/h of 120, muted",
         {"sound", "volume", "--speed", "60", "--mute"},
         "{\"applies\":true,\"percent\":0,\"wave\":0,\"label\":\"0 % (60 km/h)\"}\n"},
        {"defaults written once", {"sound", "defaults"}, "file,written\nWINDOWS/Infend.wav,yes\n"},
        {"and kept afterwards", {"sound", "defaults"}, "file,written\nWINDOWS/Infend.wav,no\n"},
    };
    for (auto [legend, args, expected] : cases) {
        const ToolResult result = runTool(rootArgs + args);
        EXPECT_EQ(result.exitCode, 0) << legend;
        expected.replace("WINDOWS", root.file("windows"));
        EXPECT_TRUE(QString::fromUtf8(result.out).startsWith(expected))
            << legend << ": " << result.out.constData();
    }
}

} // namespace
