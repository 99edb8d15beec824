#include "gps/sources/NetworkReadThread.h"
#include "gps/sources/StopEvent.h"
#include "sources_support.h"
#include "support/Files.h"
#include "support/TestData.h"

#include <QProcess>
#include <QStandardPaths>
#include <arpa/inet.h>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

// A listening socket on a free loopback port.
class LoopbackListener {
public:
    LoopbackListener() {
        m_nFd = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        ::bind(m_nFd, reinterpret_cast<sockaddr*>(&address), length);
        ::listen(m_nFd, 1);
        ::getsockname(m_nFd, reinterpret_cast<sockaddr*>(&address), &length);
        m_nPort = ntohs(address.sin_port);
    }
    ~LoopbackListener() { ::close(m_nFd); }
    // Accepts one client, sends `bytes` and hangs up.
    void serveOnce(const QByteArray& bytes) {
        const int client = ::accept(m_nFd, nullptr, nullptr);
        ::write(client, bytes.constData(), static_cast<size_t>(bytes.size()));
        ::close(client);
    }
    int port() const { return m_nPort; }

private:
    int m_nFd = -1;
    int m_nPort = 0;
};

TEST(SourcesNetwork, ReadsARawNmeaStreamAndReportsItsEnd) {
    struct Case {
        const char* legend;
        bool listening;
        QByteArray sent;
        QList<QByteArray> lines;
        const char* failure;
    } cases[] = {
        {"lines up to the last $, the ? stays",
         true,
         "junk$GPGGA,1?2\r\n$GPRMC,3\r\n$",
         {"$GPGGA,1?2\r\n", "$GPRMC,3\r\n"},
         "Unable to read from the server: "},
        {"AIS rides along",
         true,
         "$GPGLL,1\r\n!AIVDM,2\r\n$",
         {"$GPGLL,1\r\n!AIVDM,2\r\n"},
         "Unable to read from the server: "},
        {"nobody listens", false, {}, {}, "Unable to connect to the server: Connection refused (127.0.0.1:"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        auto listener = std::make_unique<LoopbackListener>();
        const QString address = QStringLiteral("127.0.0.1:%1").arg(listener->port());
        if (!c.listening) listener.reset();
        std::thread server([&] {
            if (listener) listener->serveOnce(c.sent);
        });
        NetworkReadThread reader("TcpReadThread", NetworkReadThread::nmeaTcp(address, false));
        StopEvent stop;
        RecordingSink sink;
        reader.run(stop, sink); // ends when the server hangs up
        server.join();
        EXPECT_EQ(sink.lines(), c.lines);
        ASSERT_EQ(sink.failures().size(), 1);
        EXPECT_TRUE(sink.failures().first().startsWith(c.failure)) << sink.failures().first().toStdString();
    }
}

// The real gpsd, fed by gpsfake on a free loopback port: its raw NMEA comes through unchanged and
// none of its JSON answers gets into a sentence.
TEST(SourcesNetwork, TakesRawNmeaFromARealGpsd) {
    const QString gpsfake = QStandardPaths::findExecutable("gpsfake");
    if (gpsfake.isEmpty()) GTEST_SKIP() << "gpsfake (Debian package gpsd-clients) is not installed";
    const QString log = testDataDir() + "/sources/gpsd-feed.nmea";
    QList<QByteArray> logLines, gpLines;
    for (const QByteArray& line : readFile(log).split('\n'))
        if (!line.isEmpty()) logLines.append(line + '\n');
    std::copy_if(logLines.begin(), logLines.end(), std::back_inserter(gpLines),
                 [](const QByteArray& line) { return line.startsWith("$GP"); });
    ASSERT_FALSE(gpLines.isEmpty());

    const int port = LoopbackListener().port();
    QProcess daemon;
    daemon.start(gpsfake, {"-q", "-n", "-c", "0.02", "-P", QString::number(port), log});
    ASSERT_TRUE(daemon.waitForStarted());
    StopEvent stop;
    RecordingSink sink;
    auto allGpSeen = [&] {
        const QList<QByteArray> lines = sink.lines();
        return std::all_of(gpLines.begin(), gpLines.end(),
                           [&](const QByteArray& line) { return lines.contains(line); });
    };
    // gpsd needs a moment to listen; each failed attempt is one reader run, as a reconnect would be.
    for (int attempt = 0; attempt < 100 && !allGpSeen(); ++attempt) {
        NetworkReadThread reader("GpsdReadThread",
                                 NetworkReadThread::gpsd(QStringLiteral("localhost:%1").arg(port), false));
        std::atomic<bool> ended = false;
        std::thread running([&] {
            reader.run(stop, sink);
            ended = true;
        });
        for (int wait = 0; wait < 200 && !ended && !allGpSeen(); ++wait)
            QThread::msleep(25);
        stop.set();
        running.join();
        stop.reset();
    }
    daemon.terminate();
    if (!daemon.waitForFinished(5000)) daemon.kill();
    EXPECT_TRUE(allGpSeen());
    for (const QByteArray& line : sink.lines())
        EXPECT_TRUE(logLines.contains(line)) << line.toStdString();
}

} // namespace
