#include "TestApplication.h"
#include "shell/CMainFrame.h"
#include "shell/PageTable.h"
#include "settings/CRegistryKey.h"
#include "shell/ui/CPageView.h"
#include "support/TestRoot.h"

#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

void writeUserPage(const TestRoot& root, const QString& file, const QString& name) {
    QFile out(root.root().programFolder() + '/' + file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(name.isEmpty() ? QByteArray("[Global]\nColor = 1\n")
                             : ("[Global]\nName = " + name.toUtf8() + "\n"));
}

QString currentView() {
    QString view;
    CRegistryKey().ReadString("CurrentView", view);
    return view;
}

} // namespace

TEST(MainFrame, SelectsPagesByName) {
    ensureApplication();
    TestRoot root;
    writeUserPage(root, "a.ini", "Meine Seite");
    const struct {
        const char* name;
        uint16_t command;
    } cases[] = {
        {"Kartenanzeige3", 0x8063},      {"Höhenansicht", 0x801A},
        {"Meine Seite", 0x8034},         // the first user page slot
        {"Verschwundene Seite", 0x8007}, // unknown: the data source page
        {"Info über Tarvik", 0x8007},    // a command, not a page
    };
    CMainFrame frame{PageFactory()};
    for (const auto& c : cases) {
        frame.SelectPageByName(QString::fromUtf8(c.name));
        EXPECT_EQ(frame.CurrentCommand(), c.command) << c.name;
    }
}

TEST(MainFrame, SwitchingWritesCurrentViewAndTitle) {
    ensureApplication();
    TestRoot root;
    CMainFrame frame{PageFactory()};
    ASSERT_TRUE(frame.SelectPage(0x8056));
    EXPECT_EQ(currentView(), "Satelliten");
    EXPECT_EQ(frame.windowTitle(), "Tarvik Satelliten");
    EXPECT_FALSE(frame.SelectPage(PageTable::kStorePosition)); // a command has no page
    EXPECT_EQ(frame.CurrentCommand(), 0x8056);
    EXPECT_FALSE(frame.SelectPage(0x8035)); // an empty user page slot is ignored
}

TEST(MainFrame, CommandBarFollowsThePageShown) {
    ensureApplication();
    TestRoot root;
    CMainFrame frame{PageFactory()};
    const struct {
        const char* legend;
        uint16_t shown;
        QList<uint16_t> buttons;
    } cases[] = {
        {"speed page", 0x8008, {0x8061, 0x801A, 0x8015, 0x8004, 0x8033, 0x8011, 0x8056, 0x804F}},
        {"map page 3: no map button, extended bar",
         0x8063,
         {0x8008, 0x801A, 0x8015, 0x8004, 0x8033, 0x8011, 0x8056, 0x806F}},
        {"first map page", 0x8061, {0x8008, 0x801A, 0x8015, 0x8004, 0x8033, 0x8011, 0x8056, 0x806F}},
        {"satellites: no satellites button",
         0x8056,
         {0x8008, 0x8061, 0x801A, 0x8015, 0x8004, 0x8033, 0x8011, 0x804F}},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(frame.SelectPage(c.shown)) << c.legend;
        EXPECT_EQ(frame.CommandBarCommands(), c.buttons) << c.legend;
    }
}

TEST(MainFrame, TakesTwentyUserPagesAtMost) {
    ensureApplication();
    TestRoot root;
    for (int i = 0; i < 21; ++i)
        writeUserPage(root, QStringLiteral("p%1.ini").arg(i, 2, 10, QChar('0')),
                      QStringLiteral("Seite %1").arg(i));
    writeUserPage(root, "00-nameless.ini", QString()); // skipped: no "Name" in "[Global]"
    CMainFrame frame{PageFactory()};
    const QStringList names = frame.PageNames();
    EXPECT_TRUE(names.contains("Seite 19"));
    EXPECT_FALSE(names.contains("Seite 20"));
    EXPECT_EQ(names.size(), 20 + 20);
    EXPECT_TRUE(frame.SelectPage(0x8034 + 19));
    EXPECT_EQ(frame.windowTitle(), "Tarvik Seite 19");
}

TEST(MainFrame, MemoryPressureKeepsTheShownPageAndDeletesTheOthers) {
    ensureApplication();
    TestRoot root;
    CMainFrame frame{PageFactory()};
    frame.SelectPage(0x8061);
    frame.SelectPage(0x801A);
    ASSERT_NE(frame.ExistingPage(0x8061), nullptr);
    ASSERT_NE(frame.ExistingPage(0x8015), nullptr); // made with the frame
    QSignalSpy closing(&frame, &CMainFrame::closing);
    for (int i = 0; i < 3; ++i)
        frame.OnHibernate();
    for (int i = 0; i < 10; ++i)
        frame.OnSystemClose();
    EXPECT_EQ(closing.count(), 0); // ten close requests only free memory
    EXPECT_EQ(frame.ExistingPage(0x8061), nullptr);
    EXPECT_EQ(frame.ExistingPage(0x8015), nullptr);
    EXPECT_EQ(frame.CurrentPage(), frame.ExistingPage(0x801A));
    EXPECT_TRUE(frame.SelectPage(0x8061)); // made again on selection
    frame.OnSystemClose();
    EXPECT_EQ(closing.count(), 1); // the eleventh closes
}

TEST(MainFrame, TheExitCommandAlwaysCloses) {
    ensureApplication();
    TestRoot root;
    CRegistryKey().WriteDword("PreAllocKB", 64);
    CMainFrame frame{PageFactory()};
    EXPECT_EQ(frame.ReserveBlocks(), 1);
    QSignalSpy closing(&frame, &CMainFrame::closing);
    frame.Exit();
    EXPECT_EQ(closing.count(), 1);
}
