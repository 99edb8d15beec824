#include "support/TestData.h"
#include "support/TestRoot.h"
#include "support/ToolRunner.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace {

TEST(SourcesTool, WatchShowsWhatTheFakeReceiverPlays) {
    TestRoot root;
    QProcess receiver;
    receiver.start(QStringLiteral(TARVIK_TOOL_PATH),
                   {"fake-receiver", testDataDir() + "/sources/gpsd-feed.nmea", "--speed", "10", "--loop"});
    ASSERT_TRUE(receiver.waitForReadyRead(10000));
    const QString device = QString::fromLocal8Bit(receiver.readLine()).trimmed();
    ASSERT_TRUE(device.startsWith("/dev/")) << device.toStdString();

    const ToolResult watched =
        runTool({"--root", root.path(), "watch", "--device", device, "--seconds", "2"});
    receiver.kill();
    receiver.waitForFinished();
    EXPECT_EQ(watched.exitCode, 0) << watched.err.toStdString();
    EXPECT_TRUE(watched.out.startsWith("ms,code,sentence\n"));
    EXPECT_TRUE(watched.out.contains(
        ",70,\"$GPGGA,092911.00,4807.038,N,01131.017,E,1,08,0.9,545.4,M,46.9,M,,*60\"\n"))
        << watched.out.toStdString();
    EXPECT_TRUE(watched.out.contains(",98,\"$GPRMC,092912.00,"));
}

} // namespace
