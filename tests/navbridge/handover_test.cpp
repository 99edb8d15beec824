#include "integrations/navbridge/DestinationHandOver.h"
#include "integrations/navbridge/NavProgramKind.h"
#include "integrations/navbridge/TomTomSdk.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

QStringList relative(const TestRoot& root, const QStringList& files) {
    QStringList names;
    for (const QString& file : files)
        names.append(QDir(root.path()).relativeFilePath(file));
    return names;
}

} // namespace

// Each kind writes its own files, byte for byte, into the root; the Munich example of the TomTom SDK.
TEST(DestinationHandOver, WritesTheFilesOfEachKind) {
    const QByteArray wiesn = "M\xc3\xbc"
                             "nchner Wiesn";
    const QByteArray ini = "[DestList]\n0 = 2|11.549670|48.135480|" + wiesn + "|Tarvik Ziel|||||<UDD>|\n";
    const QByteArray rte = "-|-|-|-|-|-|-|-|-|-|11.54967|48.13548|-|\n";
    struct Case {
        const char* legend;
        int kind;
        const char* program;
        QList<std::pair<const char*, QByteArray>> files;
    } cases[] = {
        {"TomTom SDK: the message with its zero byte, then the 8-byte finished file",
         NavProgramKind::kTomTomSdk,
         "",
         {{"TomTom/SdkFileCalls/Tarvik.TomTomNavigationServer.1.1.message",
           QByteArray("NavigateToCoordinatesV01|1154967|4813548|M\xfcnchner Wiesn|.") + '\0'},
          {"TomTom/SdkFileCalls/Tarvik.TomTomNavigationServer.1.1.finished", QByteArray("finish\n\0", 8)}}},
        {"MobileNavigator 5: Routenpunkte.ini and the route file with the blank in its name",
         NavProgramKind::kMN5,
         "\\Storage Card\\MobileNavigator5\\MN.exe",
         {{"Storage Card/MobileNavigator5/Routenpunkte.ini", ini},
          {"Storage Card/MobileNavigator5/Routes/ Tarvik.rte", rte}}},
        {"MobileNavigator with class Pwc80 at the root",
         NavProgramKind::kMNPwc80,
         "\\MN.exe",
         {{"Routenpunkte.ini", ini}, {"Routes/ Tarvik.rte", rte}}},
        {"TomTom without its SDK window: nothing", NavProgramKind::kTomTom, "", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        // Old contents are not read: the file is made anew.
        writeFile(root.file("Storage Card/MobileNavigator5/Routenpunkte.ini"), "[DestList]\n1 = old\n");
        const HandOverResult result =
            DestinationHandOver(root.root(), {})
                .Navigate(c.kind, c.program, 11.54967, 48.13548, QString::fromUtf8(wiesn));
        ASSERT_TRUE(result.bOk) << result.error.toStdString();
        QStringList expectedNames;
        for (const auto& [name, bytes] : c.files) {
            expectedNames.append(QString::fromUtf8(name));
            EXPECT_EQ(readFile(root.file(QString::fromUtf8(name))), bytes) << name;
        }
        EXPECT_EQ(relative(root, result.files), expectedNames);
    }
}

// TomTom's files are appended to ("ab"): a second call before TomTom read the first adds to both.
TEST(DestinationHandOver, AppendsTomTomCalls) {
    TestRoot root;
    const DestinationHandOver handOver(root.root(), {});
    handOver.Navigate(NavProgramKind::kTomTomSdk, {}, -3.5, -40.25, QStringLiteral("A"));
    handOver.Navigate(NavProgramKind::kTomTomSdk, {}, 0.000019, 1, QStringLiteral("B"));
    EXPECT_EQ(readFile(root.file("TomTom/SdkFileCalls/Tarvik.TomTomNavigationServer.1.1.message")),
              QByteArray("NavigateToCoordinatesV01|-350000|-4025000|A|.") + '\0' +
                  "NavigateToCoordinatesV01|1|100000|B|." + '\0');
    EXPECT_EQ(readFile(root.file("TomTom/SdkFileCalls/Tarvik.TomTomNavigationServer.1.1.finished")),
              QByteArray("finish\n\0finish\n\0", 16));
}

// Programs started with a command line: Falk's Mercator metres (values of `tarvik-tool grid merc`), the
// desktop's geo: link; a failed start reports the system's error.
TEST(DestinationHandOver, StartsProgramsWithTheirArguments) {
    namespace K = NavProgramKind;
    const QStringList falk{"@/Falk/falk", "-e", "1284267,6122578"};
    struct Case {
        const char* legend;
        int kind;
        bool startWorks;
        QStringList expectedLine;
    } cases[] = {
        {"Falk", K::kFalkMarcoPolo, true, falk},
        {"desktop", K::kSystemDefault, true, {"xdg-open", "geo:48.13548,11.54967?q=Ziel%20%231"}},
        {"a failed start", K::kFalkMarcoPolo, false, falk},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        QStringList started;
        DestinationHandOver::Services services;
        services.start = [&](const QString& program, const QStringList& arguments, QString& error) {
            started = QStringList{program} + arguments;
            if (!c.startWorks) error = QStringLiteral("No such file or directory");
            return c.startWorks;
        };
        const HandOverResult result = DestinationHandOver(root.root(), services)
                                          .Navigate(c.kind, QStringLiteral("\\Falk\\falk"), 11.54967,
                                                    48.13548, QStringLiteral("Ziel #1"));
        QStringList expected = c.expectedLine;
        expected.replaceInStrings(QStringLiteral("@"), root.path());
        EXPECT_EQ(started, expected);
        EXPECT_EQ(result.bOk, c.startWorks);
        EXPECT_EQ(result.error.isEmpty(), c.startWorks);
        EXPECT_TRUE(result.files.isEmpty());
    }
}

// The clean-up worker with 2 ms rounds: two replies end it early, fewer let it run all its rounds; at
// the end Tarvik's own request files are gone and other files stay.
TEST(SdkFileCleanup, DeletesRepliesAndThenTheRequest) {
    struct Case {
        const char* legend;
        int replies;
        int expectedDeleted;
    } cases[] = {
        {"no reply: all rounds", 0, 0},
        {"one reply: all rounds", 1, 1},
        {"three replies: ends after the first round", 3, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        const QString folder = root.file("TomTom/SdkFileCalls/");
        DestinationHandOver(root.root(), {})
            .Navigate(NavProgramKind::kTomTomSdk, {}, 1, 2, QStringLiteral("x"));
        for (int i = 0; i < c.replies; ++i)
            writeFile(folder + QStringLiteral("TomTomNavigationServer.Tarvik.%1.message").arg(i), "reply");
        writeFile(folder + "Other.TomTomNavigationServer.1.1.message", "someone else's");
        SdkFileCleanup cleanup(root.root(), std::chrono::milliseconds(2), 50);
        const auto started = std::chrono::steady_clock::now();
        cleanup.start();
        cleanup.join();
        const auto took = std::chrono::steady_clock::now() - started;
        EXPECT_EQ(cleanup.repliesDeleted(), c.expectedDeleted);
        EXPECT_EQ(QDir(folder).entryList(QDir::Files),
                  QStringList{"Other.TomTomNavigationServer.1.1.message"});
        if (c.replies < 2) EXPECT_GE(took, std::chrono::milliseconds(100)); // 50 rounds of 2 ms
    }
}

// Stopped by the application: the worker ends at once and leaves the request for the next start.
TEST(SdkFileCleanup, StopsAtOnceOnTheApplicationsStop) {
    TestRoot root;
    DestinationHandOver(root.root(), {}).Navigate(NavProgramKind::kTomTomSdk, {}, 1, 2, QStringLiteral("x"));
    SdkFileCleanup cleanup(root.root()); // 600 rounds of 100 ms: a minute unless stopped
    cleanup.start();
    EXPECT_TRUE(cleanup.isRunning());
    const auto started = std::chrono::steady_clock::now();
    cleanup.stop();
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(2));
    EXPECT_FALSE(cleanup.isRunning());
    EXPECT_EQ(QDir(root.file("TomTom/SdkFileCalls")).entryList(QDir::Files).size(), 2);
}
