#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

namespace {

// The usage errors of the nouns are in tests/data/tool/commands.txt; these are the tool's own.
TEST(ToolUsageErrors, AnEmptyOrMissingRootIsRefused) {
    for (const QStringList& args :
         {QStringList{"--root"}, QStringList{"--root", "", "reg", "list", "HKCU"}}) {
        const ToolResult result = runTool(args);
        EXPECT_EQ(result.exitCode, 2) << args.join(' ').toStdString();
        EXPECT_EQ(result.err, "tarvik-tool: --root needs a folder\n") << args.join(' ').toStdString();
    }
}

// Every level's "--help" answers on stdout with exit 0, and its text ends with one line end, so a
// shell prompt or the next command's output starts on a line of its own.
TEST(ToolUsageErrors, EveryHelpTextEndsWithALineEnd) {
    TestRoot root;
    const struct {
        const char* noun;
        QStringList verbs; // each asked on its own, after the noun alone
    } levels[] = {
        {"", {}},
        {"reg", {"get", "set", "list", "delete", "export", "import"}},
        {"ini", {"get", "set"}},
        {"nmea", {"parse", "gga"}},
        {"track", {"read"}},
        {"replay", {}},
        {"sound", {"bands", "volume", "defaults"}},
        {"coord", {"format", "parse"}},
        {"geo", {"dist", "dest"}},
        {"grid", {"utm", "utm-inverse", "mgrs", "merc", "merc-inverse"}},
        {"kal", {"fit", "save", "show", "geo2px", "px2geo"}},
        {"map", {"scan", "best", "import", "export"}},
        {"poi", {"read", "nearest", "convert"}},
        {"demo", {"generate", "sounds", "prepare"}},
        {"fake-receiver", {}},
        {"watch", {}},
    };
    for (const auto& level : levels) {
        QList<QStringList> commands{{QString::fromLatin1(level.noun)}};
        for (const QString& verb : level.verbs)
            commands.append({QString::fromLatin1(level.noun), verb});
        for (QStringList command : commands) {
            command.removeAll(QString());
            const ToolResult result =
                runTool(QStringList{"--root", root.path()} + command + QStringList{"--help"});
            const std::string what = command.join(' ').toStdString();
            EXPECT_EQ(result.exitCode, 0) << what;
            EXPECT_TRUE(result.out.startsWith("usage: ")) << what;
            EXPECT_TRUE(result.out.endsWith('\n')) << what;
            EXPECT_FALSE(result.out.endsWith("\n\n")) << what;
        }
    }
}

} // namespace
