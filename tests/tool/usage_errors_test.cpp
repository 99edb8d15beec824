#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <gtest/gtest.h>

namespace {

// Each usage error names what is wrong in its first line, then shows the usage; exit code 2.
TEST(ToolUsageErrors, NameTheWrongOptionOrValueFirst) {
    TestRoot root;
    const struct {
        QStringList args;
        const char* named; // what the first line must mention
    } cases[] = {
        {{"coord", "format", "48.1"}, "--lat"},
        {{"coord", "frobnicate"}, "frobnicate"},
        {{"coord", "parse"}, "missing"},
        {{"replay", "--now", "garbage", "x.nmea"}, "--now"},
        {{"replay", "--set", "LogDelay", "x.nmea"}, "--set"},
        {{"replay", "--set", "NoSuchSetting=1", "x.nmea"}, "NoSuchSetting"},
        {{"track", "read", "--now", "yesterday", "x.nmea"}, "--now"},
        {{"track", "read", "a.nmea", "b.nmea"}, "b.nmea"},
        {{"nmea", "parse", "--source", "300"}, "--source"},
        {{"nmea", "gga", "--lon", "200", "--lat", "48", "--time", "2026-05-22T12:00:00", "--valid", "1",
          "--sats", "8"},
         "--lon"},
        {{"watch", "--seconds", "abc"}, "--seconds"},
        {{"watch", "--source", "COM99"}, "COM99"},
        {{"fake-receiver", "--speed", "0", "x.nmea"}, "--speed"},
        {{"demo", "generate", "--seed", "x", "out.nmea"}, "--seed"},
        {{"grid", "utm", "48", "9", "--zone"}, "--zone"},
        {{"grid", "merc", "48", "9", "--zone", "32"}, "--zone"},
        {{"reg", "set", "HKCU\\SOFTWARE", "A", "b"}, "--type"},
        {{"reg", "explode"}, "explode"},
        {{"ini", "get", "x.ini", "S", "K", "--as", "blob"}, "blob"},
        {{"sound", "volume"}, "--speed"},
        {{"poi", "nearest", "x.ov2", "--lon", "1", "--lat", "2"}, "--radius"},
        {{"poi", "nearest", "x.ov2", "--lon", "1", "--lat", "2", "--radius", "all", "--sort", "0"}, "--sort"},
        {{"--root"}, "--root"},
        {{"--root", "", "reg", "list", "HKCU"}, "--root"},
    };
    for (const auto& c : cases) {
        const QStringList args =
            c.args.first() == "--root" ? c.args : QStringList{"--root", root.path()} + c.args;
        const ToolResult result = runTool(args);
        const QByteArray firstLine = result.err.left(result.err.indexOf('\n'));
        EXPECT_EQ(result.exitCode, 2) << args.join(' ').toStdString();
        EXPECT_TRUE(firstLine.contains(c.named))
            << args.join(' ').toStdString() << ": " << firstLine.toStdString();
        EXPECT_FALSE(firstLine.startsWith("usage:")) << args.join(' ').toStdString();
    }
}

// "--" ends the options: what follows is read as arguments even when it starts with "-".
TEST(ToolUsageErrors, DoubleDashEndsTheOptions) {
    TestRoot root;
    const ToolResult negative = runTool({"--root", root.path(), "coord", "parse", "--", "--5"});
    EXPECT_EQ(negative.exitCode, 0);
    EXPECT_EQ(negative.out, "{\"ok\":true,\"value\":5}\n");
    EXPECT_EQ(runTool({"--root", root.path(), "coord", "parse", "--bogus", "--", "5"}).exitCode, 2);
}

} // namespace
