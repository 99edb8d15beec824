#include "gps/TrackLogWriter.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int64_t kMay22At1158 = 1779451080; // 2026-05-22 11:58:00 UTC
constexpr int kSeconds = 150;                // flushed at 11:59:00 and 12:00:00, then 29 s more

QByteArray sentenceOf(int second) {
    return QString::asprintf("$GPGGA,%06d,4806.0,N,01130.0,E,1,08,0.9,500.0,M,47.0,M,,\r\n", second)
        .toLatin1();
}

// The child writes a log for kSeconds recorded seconds, says so through the pipe and waits to be killed.
[[noreturn]] void writeAndWait(const TestRoot& root, int readyFd) {
    RegistryHive::setCurrent(std::make_shared<RegistryHive>(root.root().registryFile()));
    FixedDeviceClock clock(kMay22At1158);
    TrackLogWriter writer(root.root(), clock);
    writer.open();
    for (int second = 0; second < kSeconds; ++second) {
        clock.setUtcNow(kMay22At1158 + second);
        const QByteArray line = sentenceOf(second);
        writer.writeSentence(line.constData(), static_cast<int>(line.size()));
    }
    const char ready = 'r';
    if (::write(readyFd, &ready, 1) != 1) _exit(1);
    for (;;)
        ::pause();
}

TEST(TrackLogKill, KeepsEverySentenceUpToTheLastFlush) {
    TestRoot root;
    CRegistryKey().WriteDword("LogDelay", 0);
    int pipeFds[2];
    ASSERT_EQ(::pipe(pipeFds), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) writeAndWait(root, pipeFds[1]);
    char ready = 0;
    ASSERT_EQ(::read(pipeFds[0], &ready, 1), 1);
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(pipeFds[0]);
    ::close(pipeFds[1]);
    ASSERT_TRUE(WIFSIGNALED(status));

    QByteArray flushed = TrackLogWriter::headerLine();
    for (int second = 0; second <= 120; ++second)
        flushed += sentenceOf(second);
    QFile log(root.file("My Documents/TragLog/2026-05-22_11-58.txt"));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().startsWith(flushed)) << "every sentence up to 12:00:00 survives the kill";
}

} // namespace
