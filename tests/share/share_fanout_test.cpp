#include "gps/share/ReceiverShare.h"
#include "gps/share/SharedLogPlayer.h"
#include "platform/TcpListener.h"
#include "share_support.h"
#include "support/Files.h"
#include "support/TestData.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <thread>

namespace {

bool readers(ReceiverShare& share, int count) {
    return share.fanout().waitForStatus(
        [count](const LineFanout::Status& s) { return s.m_nReaders == count; }, 5000);
}

QByteArray circleLog() {
    return readFile(testDataDir() + "/replay/circle-3min.nmea");
}

class ShareFanout : public ::testing::Test {
protected:
    QString link() const { return m_dir.filePath("dev/gps0"); }
    ReceiverShare::Options options(bool terminal = true) const {
        ReceiverShare::Options options;
        if (terminal) options.m_endpoints.m_strLinkPath = link();
        options.m_endpoints.m_strTcpHost = "127.0.0.1";
        options.m_endpoints.m_nTcpPort = 0;
        return options;
    }
    void playFast(ReceiverShare& share, const QByteArray& log) {
        SharedLogPlayer({share, {.m_nRate = 0}, [](int) {}}).play(log);
    }
    QTemporaryDir m_dir;
};

TEST_F(ShareFanout, TwoClientsAndTheTerminalGetTheLogByteForByte) {
    ReceiverShare share;
    ASSERT_EQ(share.start(options()), QString());
    StreamReader first = StreamReader::tcp(share.fanout().tcpPort());
    StreamReader second = StreamReader::tcp(share.fanout().tcpPort());
    StreamReader terminal = StreamReader::terminal(link());
    ASSERT_TRUE(readers(share, 3));
    const QByteArray log = circleLog();
    std::thread player([&] { playFast(share, log); });
    EXPECT_EQ(first.readUpTo(log.size()), log);
    EXPECT_EQ(terminal.readUpTo(log.size()), log);
    EXPECT_EQ(second.readUpTo(log.size()), log);
    player.join();
    EXPECT_TRUE(share.fanout().waitDrained(5000));
    EXPECT_EQ(share.fanout().status().m_nDropped, 0);
}

TEST_F(ShareFanout, CutsOffAClientThatNeverReadsWhileTheOthersKeepPace) {
    ReceiverShare share;
    ASSERT_EQ(share.start(options(false)), QString());
    StreamReader stuck = StreamReader::tcp(share.fanout().tcpPort());
    StreamReader reading = StreamReader::tcp(share.fanout().tcpPort());
    ASSERT_TRUE(readers(share, 2));
    // Far more than the stuck client's system buffers and backlog hold together.
    const QByteArray log = circleLog().repeated(40);
    std::thread player([&] { playFast(share, log); });
    EXPECT_EQ(reading.readUpTo(log.size(), 8000), log);
    player.join();
    EXPECT_EQ(share.fanout().status().m_nDropped, 1);
    EXPECT_EQ(share.fanout().status().m_nReaders, 1);
    // The cut-off client reads what its buffers held, then the end.
    const QByteArray partial = stuck.readUpTo(log.size(), 3000);
    EXPECT_LT(partial.size(), log.size());
    EXPECT_TRUE(log.startsWith(partial));
}

TEST_F(ShareFanout, AReaderThatComesBackGetsTheStreamAgain) {
    ReceiverShare share;
    ASSERT_EQ(share.start(options()), QString());
    struct Case {
        const char* legend;
        bool terminal;
    } cases[] = {{"TCP client", false}, {"terminal", true}};
    const QByteArray before = "$GPGGA,before*00\r\n", away = "$GPGGA,while-away*00\r\n",
                     after = "$GPGGA,after*00\r\n";
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        auto open = [&] {
            return c.terminal ? StreamReader::terminal(link()) : StreamReader::tcp(share.fanout().tcpPort());
        };
        StreamReader reader = open();
        ASSERT_TRUE(readers(share, 1));
        share.takeLine(before.constData(), int(before.size()));
        EXPECT_EQ(reader.readUpTo(before.size()), before);
        reader.close();
        ASSERT_TRUE(readers(share, 0)) << share.fanout().status().m_nReaders;
        share.takeLine(away.constData(), int(away.size()));
        reader = open();
        ASSERT_TRUE(readers(share, 1));
        share.takeLine(after.constData(), int(after.size()));
        EXPECT_EQ(reader.readUpTo(after.size() + away.size(), 500), after);
        reader.close();
        ASSERT_TRUE(readers(share, 0));
    }
}

TEST_F(ShareFanout, RefusesEndpointsItCannotOpenAndLeavesNothingOpen) {
    TcpListener taken;
    ASSERT_EQ(taken.listen("127.0.0.1", 0), QString());
    writeFile(m_dir.filePath("plain"), "not a folder");
    writeFile(m_dir.filePath("dev/file"), "not a link");
    struct Case {
        const char* legend;
        QString link;
        int port;
        QString message;
    } cases[] = {
        {"link below a file", m_dir.filePath("plain/gps0"), 0,
         "Cannot share the receiver at " + m_dir.filePath("plain/gps0") + ": cannot create its folder"},
        {"a file in the link's place", m_dir.filePath("dev/file"), 0,
         "Cannot share the receiver at " + m_dir.filePath("dev/file") + ": a file of that name exists"},
        {"port in use", link(), taken.port(),
         QString("Cannot share the receiver on 127.0.0.1:%1: Address already in use").arg(taken.port())},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        ReceiverShare::Options failing = options();
        failing.m_endpoints.m_strLinkPath = c.link;
        failing.m_endpoints.m_nTcpPort = c.port;
        ReceiverShare share;
        EXPECT_EQ(share.start(failing), c.message);
        EXPECT_FALSE(share.running());
        EXPECT_FALSE(QFileInfo(link()).isSymLink());
        // Lines still come and go without a reader in the way.
        share.takeLine("$GPGGA\r\n", 8);
    }
}

} // namespace
