#include "integrations/navbridge/NavBridgeSettings.h"
#include "integrations/ui/CMNAddOnPage.h"
#include "integrations/ui/CModuleMNFastStart.h"
#include "integrations/ui/CNavInfoBox.h"
#include "integrations/ui/CNavOverlay.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <gtest/gtest.h>

namespace {
QMessageBox* openBox(QWidget& page) {
    const QList<QMessageBox*> boxes = page.findChildren<QMessageBox*>();
    return boxes.isEmpty() ? nullptr : boxes.last();
}
} // namespace

// The box sits at "MNInfoRect" inside the navigation window and moves with it; it hides while the
// window is gone and while "MNInfo" is off.
TEST(CNavOverlay, FollowsTheNavigationWindow) {
    ensureApplication();
    TestRoot root;
    CRegistryKey key;
    writeSetting(key, NavBridgeSettings::kInfo, true);
    key.WriteRect(QString::fromLatin1(NavBridgeSettings::kInfoRect), {10, 20, 110, 52});
    std::optional<QRect> frame = QRect(100, 50, 640, 480);
    CNavOverlay overlay({[&] { return frame; },
                         [](const QString& text) { return QString(text).replace("%Speed%", "42"); },
                         {},
                         {}});
    struct Step {
        const char* legend;
        std::optional<QRect> frame;
        bool on;
        std::optional<QRect> expected;
    } steps[] = {
        {"placed inside the window", QRect(100, 50, 640, 480), true, QRect(110, 70, 100, 32)},
        {"moved with it", QRect(300, 200, 640, 480), true, QRect(310, 220, 100, 32)},
        {"window gone", std::nullopt, true, std::nullopt},
        {"back again", QRect(0, 0, 800, 480), true, QRect(10, 20, 100, 32)},
        {"switched off", QRect(0, 0, 800, 480), false, std::nullopt},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.legend);
        frame = step.frame;
        writeSetting(key, NavBridgeSettings::kInfo, step.on);
        overlay.LoadSettings();
        EXPECT_EQ(overlay.InfoBox().isVisible(), step.expected.has_value());
        if (step.expected) EXPECT_EQ(overlay.InfoBox().geometry(), *step.expected);
    }
    EXPECT_EQ(overlay.InfoBox().Text(), "42 km/h"); // the default "MNInfoText" expanded
}

// Switching "MNInfo" on writes it and warns in German; the numbers are written as they change.
TEST(CMNAddOnPage, WritesSettingsAndWarns) {
    ensureApplication();
    TestRoot root;
    int changes = 0;
    CMNAddOnPage page([&] { ++changes; });
    auto* info = page.findChild<QCheckBox*>(QString(), Qt::FindChildrenRecursively);
    for (QCheckBox* box : page.findChildren<QCheckBox*>())
        if (box->text() == QStringLiteral("Infobox über dem Navi")) info = box;
    info->setChecked(true);
    QMessageBox* warning = openBox(page);
    ASSERT_TRUE(warning);
    EXPECT_TRUE(warning->text().contains(QStringLiteral("ältere MobileNavigator-Versionen")));
    EXPECT_TRUE(warning->text().contains(QStringLiteral("Flackern")));
    warning->close();
    const QList<QSpinBox*> spins = page.findChildren<QSpinBox*>();
    for (QSpinBox* spin : spins)
        if (spin->suffix() == QStringLiteral(" s")) spin->setValue(90);
    EXPECT_GE(changes, 1);
    const QStringList lines = root.settingsLines();
    for (const char* line :
         {"\"MNInfo\"=hex:01", "\"AutoAnnouncement\"=dword:0000005a", "\"MNInfoText\"=\"%Speed% km/h\""})
        EXPECT_TRUE(lines.contains(line)) << lines.join('\n').toStdString();
}

// One button a target; a tap hands that target over; a failed hand-over shows "Last Error".
TEST(CModuleMNFastStart, HandsOverTheTappedTarget) {
    ensureApplication();
    TestRoot root;
    const QString file =
        writeFile(root.file("Tarvik/MNTarget.ini"),
                  "[MNTarget]\nTarget0 = 11.5, 48.1, \"Home\"\nTarget1 = 8.5, 47.3, \"Work\"\n");
    QStringList handed;
    bool fail = false;
    CModuleMNFastStart::Actions actions;
    actions.navigate = [&](double lon, double lat, const QString& name) {
        handed.append(QStringLiteral("%1 %2 %3").arg(lon).arg(lat).arg(name));
        return HandOverResult{!fail, {}, {}, fail ? QStringLiteral("Datei nicht gefunden") : QString()};
    };
    CModuleMNFastStart page(file, actions);
    QStringList names;
    QPushButton* work = nullptr;
    for (QPushButton* button : page.findChildren<QPushButton*>()) {
        names.append(button->text());
        if (button->text() == "Work") work = button;
    }
    EXPECT_EQ(names, (QStringList{"Home", "Work", "Navigationsprogramm zeigen"}));
    ASSERT_TRUE(work);
    QTest::mouseClick(work, Qt::LeftButton);
    EXPECT_EQ(handed, QStringList{"8.5 47.3 Work"});
    EXPECT_FALSE(openBox(page));
    fail = true;
    QTest::mouseClick(work, Qt::LeftButton);
    QMessageBox* box = openBox(page);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->windowTitle(), "Last Error");
    EXPECT_EQ(box->text(), "Datei nicht gefunden");
}
