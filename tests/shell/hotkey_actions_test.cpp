#include "gps/CFendixDoc.h"
#include "gps/sound/SoundController.h"
#include "platform/DeviceClock.h"
#include "platform/audio/QtNoiseMeter.h"
#include "platform/audio/QtSoundOutput.h"
#include "settings/CRegistryKey.h"
#include "shell/CMainFrame.h"
#include "shell/hotkeys/CHotkeyActions.h"
#include "shell/hotkeys/CHotkeyInput.h"
#include "support/Files.h"
#include "support/TestApplication.h"
#include "support/TestData.h"
#include "support/TestRoot.h"

#include <QFileInfo>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// The runner over a real frame, document and sound controller in a fresh root; notices and
// navigation actions are kept in the order they came.
struct Runner {
    const bool bApplication = (ensureApplication(), true); // before the frame
    TestRoot root;
    FixedDeviceClock clock{1715679067};
    CFendixDoc doc{root.root(), clock};
    QtSoundOutput output;
    QtNoiseMeter noise;
    SoundController sounds{output, noise, root.root(), doc.Fix()};
    CMainFrame frame{PageFactory()};
    QStringList notices;
    int nStored = 0;
    CHotkeyActions actions{{&frame, &doc, &sounds, nullptr, [this] { ++nStored; },
                            [this](const QString& text) { notices << text; }, [] { return true; }}};
    Runner() { frame.resize(240, 320); }
};

} // namespace

TEST(HotkeyActions, SelectPagesByNameAndInTurn) {
    const struct {
        const char *legend, *shown, *action, *expected;
    } cases[] = {
        {"a page by its name", "Geschwindigkeitsanzeige", "<Satelliten>", "Satelliten"},
        {"the next page of the choice list", "Satelliten", "<Ansichten wechseln>", "Position"},
        {"after the last page the first", "Diagramme", "<Ansichten wechseln>", "Kartenanzeige"},
        {"a page not in the list: the first", "Meldungen", "<Ansichten wechseln>", "Kartenanzeige"},
        {"a page that is gone: the data source page", "Position", "<Gibt es nicht>",
         "Einstellungen Datenquelle"},
        {"no action", "Position", "<Keine>", "Position"},
        {"empty", "Position", "", "Position"},
        {"not an action name", "Position", "Satelliten", "Position"},
        {"a navigation action without the bridge", "Position", "<MN Zoom in>", "Position"},
    };
    Runner runner;
    for (const auto& c : cases) {
        runner.frame.SelectPageByName(QString::fromUtf8(c.shown));
        runner.actions.Perform(QString::fromUtf8(c.action));
        EXPECT_EQ(runner.frame.CurrentPageName(), QString::fromUtf8(c.expected)) << c.legend;
    }
}

TEST(HotkeyActions, ChangeVolumeAndSoundWithTheirNotices) {
    Runner runner;
    runner.sounds.loadSettings();
    runner.sounds.setBaseVolume(50);
    const int start = runner.sounds.baseVolume();
    const struct {
        const char* action;
        int baseVolume; // change from the start
        bool bSoundOn;
        const char* notice;
    } cases[] = {
        {"<Lauter>", 10, true, "Lauter"},         {"<Lauter>", 20, true, "Lauter"},
        {"<Leiser>", 10, true, "Leiser"},         {"<Sound an/aus>", 10, false, "Sound Aus"},
        {"<Sound an/aus>", 10, true, "Sound An"},
    };
    for (const auto& c : cases) {
        runner.actions.Perform(QString::fromUtf8(c.action));
        EXPECT_EQ(runner.sounds.baseVolume() - start, c.baseVolume) << c.action;
        EXPECT_EQ(runner.sounds.isSoundOn(), c.bSoundOn) << c.action;
        EXPECT_EQ(runner.notices.last(), QString::fromUtf8(c.notice)) << c.action;
    }
}

TEST(HotkeyActions, WriteScreenshotsWithoutOverwriting) {
    Runner runner;
    CRegistryKey().WriteString("ScreenshotDir", "/Bilder/");
    writeFile(runner.root.file("Bilder/GScreen_1.bmp"), "earlier");
    runner.actions.Perform("<Screenshot>");
    runner.actions.Perform("<Screenshot>");
    EXPECT_EQ(readFile(runner.root.file("Bilder/GScreen_1.bmp")), "earlier");
    for (const char* written : {"Bilder/GScreen_2.bmp", "Bilder/GScreen_3.bmp"}) {
        const QByteArray image = readFile(runner.root.file(written));
        EXPECT_TRUE(image.startsWith("BM")) << written;
    }
}

TEST(HotkeyActions, ResetTheDocumentsFiguresAndStoreThePosition) {
    Runner runner;
    CRegistryKey key;
    key.WriteDouble("Tour", 12.5);
    key.WriteDword("TourTime", 3600);
    runner.doc.LoadSettings();
    const QByteArray log = readFile(testDataDir() + "/nmea/gga-log.nmea");
    for (const QByteArray& line : log.split('\n'))
        if (!line.isEmpty()) runner.doc.HandleSentence((line + "\r\n").constData(), int(line.size()) + 2);
    const TourStatistics& stats = runner.doc.Statistics();
    ASSERT_GT(stats.m_fMaxSpeed, 0);
    ASSERT_GT(stats.m_dRunDistance, 0);

    runner.actions.Perform("<Reset Maximalwerte>");
    EXPECT_EQ(stats.m_fMaxSpeed, 0);
    EXPECT_EQ(stats.m_fMaxAltitude, -1000.0f);
    EXPECT_GT(stats.m_dRunDistance, 0);
    runner.actions.Perform("<Reset Trag>");
    EXPECT_EQ(stats.m_dRunDistance, 0);
    EXPECT_GT(stats.m_dTourDistance, 12.5);
    runner.actions.Perform("<Reset Tour>");
    EXPECT_EQ(stats.m_dTourDistance, 0);
    EXPECT_EQ(key.GetDword("TourTime", 99), 0u);
    runner.actions.Perform("<Speicher Aktuelle Pos>");
    EXPECT_EQ(runner.nStored, 1);
}

TEST(HotkeyActions, NavigationActionsGoToTheBridgeAndAreLogged) {
    Runner runner;
    CRegistryKey().WriteString("Develop", runner.root.file("dev.log"));
    QStringList handed;
    runner.actions.Perform("<MN Neue Ansage>");
    runner.actions.SetNavigationHandler([&handed](const QString& action) { handed << action; });
    runner.actions.Perform("<MN TMC Sendersuchlauf>");
    EXPECT_EQ(handed, QStringList{"<MN TMC Sendersuchlauf>"});
    const QByteArray devLog = readFile(runner.root.file("dev.log"));
    EXPECT_TRUE(devLog.contains(" PerformHotkeys: <MN Neue Ansage>\n")) << devLog.constData();
    EXPECT_TRUE(devLog.contains(" PerformHotkeys: <MN TMC Sendersuchlauf>\n"));
}

// The window's keys F1..F5: a chord is performed the moment its second key goes down, and a key
// whose button has no short-press action stays with the window.
TEST(HotkeyInput, WindowKeysMakeChordsAndKeepUnassignedKeys) {
    Runner runner;
    CRegistryKey key;
    key.WriteString("Taste 1", "<Position>");
    key.WriteString("Taste 3", "<Track>");
    key.WriteString("Taste 1, 3", "<Satelliten>");
    key.WriteString("Taste 2", "<Keine>");
    CHotkeyInput input(runner.actions, nullptr);
    runner.frame.installEventFilter(&input);
    runner.frame.SelectPageByName("Höhenansicht");
    QTest::keyPress(&runner.frame, Qt::Key_F1);
    QTest::keyPress(&runner.frame, Qt::Key_F3);
    EXPECT_EQ(runner.frame.CurrentPageName(), "Satelliten");
    QTest::keyRelease(&runner.frame, Qt::Key_F3);
    QTest::keyRelease(&runner.frame, Qt::Key_F1);

    QKeyEvent unassigned(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier);
    EXPECT_FALSE(input.eventFilter(&runner.frame, &unassigned));
    QKeyEvent assigned(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    EXPECT_TRUE(input.eventFilter(&runner.frame, &assigned));
}
