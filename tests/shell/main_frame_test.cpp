#include "settings/CRegistryKey.h"
#include "shell/CMainFrame.h"
#include "shell/PageTable.h"
#include "shell/ui/CPageView.h"
#include "support/Files.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QFile>
#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QToolBar>
#include <gtest/gtest.h>

namespace {

void writeUserPage(const TestRoot& root, const QString& file, const QString& name) {
    writeFile(root.root().programFolder() + '/' + file, name.isEmpty()
                                                            ? QByteArray("[Global]\nColor = 1\n")
                                                            : ("[Global]\nName = " + name.toUtf8() + "\n"));
}

QString currentView() {
    QString view;
    CRegistryKey().ReadString("CurrentView", view);
    return view;
}

// The menu as the user reads it: "-" a separator, "Sub/Item" an item of a submenu, "*" a check mark.
QStringList menuLines(const QMenu* menu, const QString& prefix = QString()) {
    QStringList lines;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator())
            lines << prefix + '-';
        else if (action->menu())
            lines << menuLines(action->menu(), prefix + action->text() + '/');
        else
            lines << prefix + action->text() + (action->isChecked() ? "*" : "");
    }
    return lines;
}

// Every test runs in a fresh root under the one QApplication.
class MainFrame : public testing::Test {
protected:
    void SetUp() override { ensureApplication(); }
    TestRoot m_root;
};

} // namespace

TEST_F(MainFrame, MenuAndChoiceListShowThePagesInTheirOrder) {
    writeUserPage(m_root, "a.ini", "Meine Seite");
    CMainFrame frame{PageFactory()};
    ASSERT_TRUE(frame.SelectPage(0x8063));
    const QList<QAction*> menus = frame.menuBar()->actions();
    ASSERT_EQ(menus.size(), 1);
    EXPECT_EQ(menus[0]->text(), "Ansicht");
    EXPECT_EQ(
        menuLines(menus[0]->menu()).join('|'),
        QString::fromUtf8("Info über Tarvik...|-|Meine Seite|Geschwindigkeitsanzeige|Kartenanzeige|"
                          "Höhenansicht|Satelliten|Position|Fahrtenbuch|GoTo Seite|Track|MN Schnellstart|"
                          "Weitere Ansichten/Kartenanzeige 2|Weitere Ansichten/Kartenanzeige 3*|"
                          "Weitere Ansichten/Kartenanzeige 4|Weitere Ansichten/Kartenanzeige 5|"
                          "Weitere Ansichten/Diagramme|-|Einstellungen/MN AddOns|"
                          "Einstellungen/Andere Einstellungen|Einstellungen/Meldungen|"
                          "Einstellungen/POI Konfiguration|Einstellungen/Tarvik Livepos|"
                          "Einstellungen/Einstellungen Hotkeys|Einstellungen/Einstellungen TMC|"
                          "Einstellungen/Einstellungen Datenquelle|Einstellungen/Datenweitergabe|-|Beenden"));
    EXPECT_EQ(frame.PageNames().join('|'),
              QString::fromUtf8("Kartenanzeige|Kartenanzeige2|Kartenanzeige3|Kartenanzeige4|Kartenanzeige5|"
                                "Fahrtenbuch|Einstellungen Hotkeys|Geschwindigkeitsanzeige|POI Konfiguration|"
                                "GoTo Seite|MN Schnellstart|Höhenansicht|Satelliten|Position|"
                                "Andere Einstellungen|MN AddOns|Einstellungen Datenquelle|Einstellungen TMC|"
                                "Track|Diagramme|Meine Seite"));
    EXPECT_EQ(PageTable::choiceList(false).size(), 19); // without the diagram page
    EXPECT_FALSE(PageTable::choiceList(false).contains("Diagramme"));
}

// Switching writes "CurrentView" and the title; a command or an empty user page slot is no page.
TEST_F(MainFrame, SelectsPagesByName) {
    writeUserPage(m_root, "a.ini", "Meine Seite");
    const struct {
        const char *name, *shown;
        uint16_t command;
    } cases[] = {
        {"Kartenanzeige3", "Kartenanzeige3", 0x8063},
        {"Höhenansicht", "Höhenansicht", 0x801A},
        {"Meine Seite", "Meine Seite", 0x8034},                       // the first user page slot
        {"Verschwundene Seite", "Einstellungen Datenquelle", 0x8007}, // unknown: the data source page
        {"Info über Tarvik", "Einstellungen Datenquelle", 0x8007},    // a command, not a page
    };
    CMainFrame frame{PageFactory()};
    for (const auto& c : cases) {
        frame.SelectPageByName(QString::fromUtf8(c.name));
        EXPECT_EQ(frame.CurrentCommand(), c.command) << c.name;
        EXPECT_EQ(currentView(), QString::fromUtf8(c.shown)) << c.name;
        EXPECT_EQ(frame.windowTitle(), "Tarvik " + QString::fromUtf8(c.shown)) << c.name;
    }
    EXPECT_FALSE(frame.SelectPage(PageTable::kStorePosition));
    EXPECT_FALSE(frame.SelectPage(0x8035));
    EXPECT_EQ(frame.CurrentCommand(), 0x8007);
}

TEST_F(MainFrame, CommandBarFollowsThePageShown) {
    CMainFrame frame{PageFactory()};
    const auto* bar = frame.findChild<QToolBar*>();
    const struct {
        const char* legend;
        uint16_t shown;
        const char* buttons; // what each button reads, and its command
    } cases[] = {
        {"speed page", 0x8008,
         "Karte 8061 Höhe 801a GoTo 8015 Fahrten 8004 MN 8033 POI 8011 Sat 8056 Pos+ 804f"},
        {"map page 3: no map button, extended bar", 0x8063,
         "Tempo 8008 Höhe 801a GoTo 8015 Fahrten 8004 MN 8033 POI 8011 Sat 8056 Menü 806f"},
        {"first map page", 0x8061,
         "Tempo 8008 Höhe 801a GoTo 8015 Fahrten 8004 MN 8033 POI 8011 Sat 8056 Menü 806f"},
        {"satellites: no satellites button", 0x8056,
         "Tempo 8008 Karte 8061 Höhe 801a GoTo 8015 Fahrten 8004 MN 8033 POI 8011 Pos+ 804f"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(frame.SelectPage(c.shown)) << c.legend;
        QStringList buttons;
        for (const QAction* action : bar->actions())
            buttons << action->text() << QString::number(action->data().toUInt(), 16);
        EXPECT_EQ(buttons.join(' '), QString::fromUtf8(c.buttons)) << c.legend;
    }
}

TEST_F(MainFrame, TakesTwentyUserPagesAtMost) {
    for (int i = 0; i < 21; ++i)
        writeUserPage(m_root, QStringLiteral("p%1.ini").arg(i, 2, 10, QChar('0')),
                      QStringLiteral("Seite %1").arg(i));
    writeUserPage(m_root, "00-nameless.ini", QString()); // skipped: no "Name" in "[Global]"
    CMainFrame frame{PageFactory()};
    const QStringList names = frame.PageNames();
    EXPECT_TRUE(names.contains("Seite 19"));
    EXPECT_FALSE(names.contains("Seite 20"));
    EXPECT_EQ(names.size(), 20 + 20);
    EXPECT_TRUE(frame.SelectPage(0x8034 + 19));
    EXPECT_EQ(frame.windowTitle(), "Tarvik Seite 19");
}

TEST_F(MainFrame, MemoryPressureKeepsTheShownPageAndDeletesTheOthers) {
    CMainFrame frame{PageFactory()};
    frame.SelectPage(0x8061);
    frame.SelectPage(0x801A);
    ASSERT_NE(frame.ExistingPage(0x8061), nullptr);
    for (uint16_t madeWithTheFrame : {0x8015, 0x8014, 0x8031}) // GoTo, hotkeys, MN AddOns
        ASSERT_NE(frame.ExistingPage(madeWithTheFrame), nullptr);
    ASSERT_EQ(frame.ExistingPage(0x8008), nullptr); // the others on first selection
    QSignalSpy closing(&frame, &CMainFrame::closing);
    for (int i = 0; i < 50; ++i) // sustained pressure
        frame.OnHibernate();
    EXPECT_EQ(closing.count(), 0) << "pressure never closes the program";
    EXPECT_EQ(frame.ExistingPage(0x8061), nullptr);
    EXPECT_EQ(frame.ExistingPage(0x8015), nullptr);
    EXPECT_EQ(frame.CurrentPage(), frame.ExistingPage(0x801A));
    EXPECT_TRUE(frame.SelectPage(0x8061)); // made again on selection
}

TEST_F(MainFrame, TheExitCommandAlwaysCloses) {
    CRegistryKey().WriteDword("PreAllocKB", 64);
    CMainFrame frame{PageFactory()};
    EXPECT_EQ(frame.ReserveBlocks(), 1);
    QSignalSpy closing(&frame, &CMainFrame::closing);
    frame.menuBar()->actions()[0]->menu()->actions().last()->trigger(); // "Beenden"
    EXPECT_EQ(closing.count(), 1);
}

TEST_F(MainFrame, FillsASmallScreen) {
    CMainFrame frame{PageFactory()};
    const QRect screen = frame.screen()->availableGeometry(); // 800×600 on the offscreen platform
    ASSERT_LE(screen.width(), 1024);
    EXPECT_EQ(frame.geometry().size(), screen.size());
}
