#include "gps/OldLogPurge.h"
#include "gps/sources/StopEvent.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

constexpr int64_t kJan31At0000 = 1769817600; // 2026-01-31 00:00 UTC

TEST(TrackLogPurge, DeletesOnlyOldLogFiles) {
    constexpr int64_t kJan1At0000 = kJan31At0000 - 30 * 86400;
    struct Case {
        const char *legend, *name;
        int32_t nDelFilesOlder; // days
        int64_t nNowAfterJan1;  // seconds
        bool bKept;
    } cases[] = {
        // clang-format off
        {"older than 30 days", "2026-01-01_00-00.txt", 30, 30 * 86400 + 3600, false},
        {"one-digit fields fit the name too", "2026-1-1_0-0.txt", 30, 30 * 86400 + 3600, false},
        {"exactly 30 days is not older", "2026-01-01_00-00.txt", 30, 30 * 86400, true},
        {"30 days and 59 minutes is 30 days in whole hours", "2026-01-01_00-00.txt", 30, 30 * 86400 + 3540, true},
        {"a name that is no log name is never deleted", "notes.txt", 0, 400 * 86400, true},
        {"four numbers are no log name", "2020-01-01_00.txt", 0, 0, true},
        {"no such month: no log name", "2020-13-01_00-00.txt", 0, 0, true},
        {"other endings are not looked at", "2020-01-01_00-00.nmea", 0, 0, true},
        {"the file of this run", "2026-01-01_00-00.txt", 0, 1800, true},
        // clang-format on
    };
    for (const Case& c : cases) {
        TestRoot root;
        CRegistryKey().WriteDword("DelFilesOlder", static_cast<uint32_t>(c.nDelFilesOlder));
        const QString path = writeFile(root.file(QString("My Documents/TragLog/") + c.name), {});
        FixedDeviceClock clock(kJan1At0000 + c.nNowAfterJan1);
        StopEvent stop;
        OldLogPurge(root.root(), clock).ThreadDelOldLog(stop, 0);
        EXPECT_EQ(QFile::exists(path), c.bKept) << c.legend;
    }
}

TEST(TrackLogPurge, EndsAtOnceWhenStoppedDuringTheWait) {
    TestRoot root;
    const QString path = writeFile(root.file("My Documents/TragLog/2000-01-01_00-00.txt"), {});
    FixedDeviceClock clock(kJan31At0000);
    StopEvent stop;
    std::thread purge = OldLogPurge::start(root.root(), clock, stop);
    stop.set();
    purge.join();
    EXPECT_TRUE(QFile::exists(path)) << "stopped within the minute's wait: nothing deleted";
}

} // namespace
