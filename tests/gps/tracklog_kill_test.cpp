#include "gps/TrackLogWriter.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/ForkedChild.h"
#include "support/TestRoot.h"

#include <csignal>
#include <gtest/gtest.h>
#include <random>
#include <sys/wait.h>

namespace {

constexpr int64_t kMay22At1158 = 1779451080; // 2026-05-22 11:58:00 UTC

QByteArray sentenceOf(int second) {
    return QString::asprintf("$GPGGA,%06d,4806.0,N,01130.0,E,1,08,0.9,500.0,M,47.0,M,,\r\n", second)
        .toLatin1();
}

struct KillCase {
    const char* legend;
    int32_t logDelay;
    int startSecond;    // seconds after 11:58:00 of the first sentence
    int seconds;        // one sentence a second until the kill
    bool tickAfterward; // the document's tick runs once in the next minute before the kill
};

// A child writes a sentence every second and is killed once its writes returned; the log it leaves.
QByteArray logAfterKill(const TestRoot& root, const KillCase& c) {
    const pid_t child = forkAndHold([&] {
        RegistryHive::setCurrent(std::make_shared<RegistryHive>(root.root().registryFile()));
        FixedDeviceClock clock(kMay22At1158);
        TrackLogWriter writer(root.root(), clock);
        writer.open();
        for (int second = c.startSecond; second < c.startSecond + c.seconds; ++second) {
            clock.setUtcNow(kMay22At1158 + second);
            const QByteArray line = sentenceOf(second);
            writer.writeSentence(line.constData(), static_cast<int>(line.size()));
        }
        if (c.tickAfterward) {
            clock.setUtcNow(kMay22At1158 + (c.startSecond + c.seconds) / 60 * 60 + 60);
            writer.flushWhenMinuteTurned();
        }
    });
    if (child <= 0) return {};
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? readFile(root.file("My Documents/TragLog/2026-05-22_11-58.txt"))
                               : QByteArray();
}

TEST(TrackLogKill, KeepsEverySentenceBeforeTheMinuteOfTheKill) {
    std::mt19937 random(20261123);
    std::uniform_int_distribution<int> anySecond(0, 59), runLength(61, 299);
    std::vector<KillCase> cases = {
        {"every sentence logged", 0, 0, 150, false},
        {"one sentence every ten seconds", 10, 0, 150, false},
        {"the tick flushes a quiet minute", 10, 0, 150, true},
    };
    for (const int32_t delay : {0, 10})
        for (int i = 0; i < 3; ++i)
            cases.push_back(
                {"killed at a random second", delay, anySecond(random), runLength(random), false});
    for (const KillCase& c : cases) {
        TestRoot root;
        CRegistryKey().WriteDword("LogDelay", static_cast<uint32_t>(c.logDelay));
        const int killSecond = c.startSecond + c.seconds; // the next second is never written
        // Everything stamped before the minute of the last write is on disk; with the tick, all of it.
        const int safeUntil = c.tickAfterward ? killSecond : (killSecond - 1) / 60 * 60;
        QByteArray expected = TrackLogWriter::headerLine();
        for (int second = c.startSecond; second < safeUntil; second += std::max(c.logDelay, 1))
            expected += sentenceOf(second);
        EXPECT_TRUE(logAfterKill(root, c).startsWith(expected))
            << c.legend << ": LogDelay " << c.logDelay << ", from second " << c.startSecond << " for "
            << c.seconds << " s";
    }
}

} // namespace
