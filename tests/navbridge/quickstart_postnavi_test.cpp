#include "integrations/navbridge/PostNaviStart.h"
#include "integrations/navbridge/QuickStartTargets.h"
#include "support/Files.h"

#include <QTemporaryDir>
#include <atomic>
#include <gtest/gtest.h>
#include <mutex>

namespace {
const char16_t kUtf16File[] = u"[MNTarget]\nTarget0 = 7, 8, \"Öd\"\n";
}

// "MNTarget.ini": entries in number order up to the first gap, damaged entries left out, UTF-16 files
// read; a missing file is made with the Oktoberfest entry.
TEST(QuickStartTargets, ReadsTheTargetFile) {
    struct Case {
        const char* legend;
        QByteArray file;
        QList<QuickStartTarget> expected;
    } cases[] = {
        {"two entries",
         "[MNTarget]\nTarget0 = 11.5, 48.1, \"Home\"\nTarget1=-0.12,51.5,\"Big Ben, London\"\n",
         {{11.5, 48.1, "Home"}, {-0.12, 51.5, "Big Ben, London"}}},
        {"a gap ends the list", "[MNTarget]\nTarget0 = 1, 2, \"a\"\nTarget2 = 3, 4, \"c\"\n", {{1, 2, "a"}}},
        {"damaged entries are skipped",
         "[MNTarget]\nTarget0 = x, 2, \"a\"\nTarget1 = 1, 2, b\nTarget2 = 5, 6, \"\"\n",
         {{5, 6, ""}}},
        {"another section", "[Targets]\nTarget0 = 1, 2, \"a\"\n", {}},
        {"UTF-16 with byte order mark",
         QByteArray("\xff\xfe", 2) +
             QByteArray::fromRawData(reinterpret_cast<const char*>(kUtf16File), sizeof(kUtf16File) - 2),
         {{7, 8, QStringLiteral("Öd")}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(QuickStartTargets::read(c.file), c.expected) << c.legend;

    QTemporaryDir dir;
    const QString path = dir.filePath("MNTarget.ini");
    const QList<QuickStartTarget> made = QuickStartTargets::load(path);
    EXPECT_EQ(made, (QList<QuickStartTarget>{{11.54967, 48.13548, QStringLiteral("Münchner Wiesn")}}));
    EXPECT_EQ(readFile(path), "[MNTarget]\nTarget0 = 11.54967, 48.13548, \"M\xc3\xbcnchner Wiesn\"\n");
}

// Timer 49's ticks until the navigation window exists, then the worker: program started with "\"
// separators; a POI warner gets its command and the navigation program comes back to the front; an
// application stop during the first wait starts nothing.
TEST(PostNaviStart, StartsTheProgramAfterTheNavigator) {
    struct Case {
        const char* legend;
        const char* program;
        bool warnerWindow;
        bool stopEarly;
        QStringList expected;
    } cases[] = {
        {"plain program", "/Programme/x.exe", true, false, {"start \\Programme\\x.exe"}},
        {"POI warner", "/POIWarner/pw.exe", true, false, {"start \\POIWarner\\pw.exe", "warner", "front"}},
        {"warner without its window", "\\PW\\Warner.exe", false, false, {"start \\PW\\Warner.exe", "warner"}},
        {"stopped while waiting", "/x.exe", true, true, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        std::mutex mutex;
        QStringList calls;
        const auto record = [&](const QString& call) {
            const std::lock_guard lock(mutex);
            calls.append(call);
        };
        PostNaviStart::Services services;
        services.start = [&](const QString& program) { record("start " + program); };
        services.sendPoiWarnerStart = [&] {
            record("warner");
            return c.warnerWindow;
        };
        services.bringNavigatorToFront = [&] { record("front"); };
        services.firstWait = std::chrono::milliseconds(c.stopEarly ? 60000 : 5);
        services.warnerWait = services.frontWait = std::chrono::milliseconds(5);
        PostNaviStart start(services);
        EXPECT_FALSE(start.Tick(false, QString::fromUtf8(c.program)));
        EXPECT_TRUE(start.Tick(true, QString::fromUtf8(c.program)));
        if (c.stopEarly)
            start.Stop();
        else
            start.Join();
        EXPECT_EQ(calls, c.expected);
    }
}
