#include "gps/share/ReceiverShare.h"
#include "gps/share/SharedLogPlayer.h"
#include "platform/TcpListener.h"
#include "support/Files.h"
#include "support/TestData.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace {

// gpsd (a test oracle) opens the shared terminal as a receiver and reports the log's fixes.
TEST(ShareGpsd, GpsdReadsTheTerminalAsAReceiver) {
    const QString gpsd = QStandardPaths::findExecutable("gpsd", {"/usr/sbin", "/usr/local/sbin", "/usr/bin"});
    const QString gpspipe = QStandardPaths::findExecutable("gpspipe");
    if (gpsd.isEmpty() || gpspipe.isEmpty()) GTEST_SKIP() << "gpsd or gpspipe missing";
    QTemporaryDir dir;
    ReceiverShare share;
    ReceiverShare::Options options;
    options.m_endpoints.m_strLinkPath = dir.filePath("dev/gps0");
    ASSERT_EQ(share.start(options), QString());
    TcpListener probe; // a free port for gpsd's clients
    ASSERT_EQ(probe.listen("127.0.0.1", 0), QString());
    const QString port = QString::number(probe.port());
    probe.close();

    QProcess daemon;
    daemon.start(gpsd, {"-N", "-n", "-S", port, options.m_endpoints.m_strLinkPath});
    ASSERT_TRUE(daemon.waitForStarted());
    std::atomic<bool> done = false;
    const QByteArray log = readFile(testDataDir() + "/replay/circle-3min.nmea");
    std::thread player([&] {
        SharedLogPlayer(share, {.m_nRate = 40}, [&](int ms) {
            if (!done) std::this_thread::sleep_for(std::chrono::milliseconds(ms));
        }).play(log);
    });
    // gpsd takes a moment before it listens: gpspipe is started again until it connects.
    QString reports;
    QElapsedTimer timer;
    timer.start();
    while (!reports.contains("TPV") && timer.elapsed() < 9000) {
        QProcess pipe;
        pipe.start(gpspipe, {"-w", "-n", "20", "127.0.0.1:" + port});
        pipe.waitForFinished(int(9000 - timer.elapsed()));
        reports += QString::fromUtf8(pipe.readAllStandardOutput());
        if (!reports.contains("TPV")) std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    done = true;
    player.join();
    daemon.terminate();
    daemon.waitForFinished(3000);
    const QRegularExpression fix(R"re("class":"TPV".*"mode":3.*"lat":48\.1[34]\d*,"lon":11\.59\d*)re");
    EXPECT_TRUE(fix.match(reports).hasMatch()) << reports.toStdString();
}

} // namespace
