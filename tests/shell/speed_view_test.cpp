#include "gps/CFendixDoc.h"
#include "gps/sources/SourceTable.h"
#include "gps/ui/CSourceSettingsPage.h"
#include "gps/ui/CSpeedView.h"
#include "platform/DeviceClock.h"
#include "shell/ui/FittedLabel.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include "settings/CRegistryKey.h"

#include <QPushButton>
#include <gtest/gtest.h>

namespace {

QStringList shownTexts(const QWidget& page) {
    QStringList texts;
    for (const FittedLabel* label : page.findChildren<FittedLabel*>())
        texts << label->text();
    return texts;
}

} // namespace

TEST(SpeedView, ShowsTheDocumentState) {
    ensureApplication();
    TestRoot root;
    FixedDeviceClock clock = *FixedDeviceClock::fromIso8601("2024-05-14T09:31:07+02:00");
    CFendixDoc doc(root.root(), clock);
    const struct {
        const char* legend;
        uint8_t valid;
        float speed;
        uint8_t satellites, source;
        int64_t localTime;
        const char* expected; // texts shown, among others, separated by "|"
    } cases[] = {
        {"fix with speed", 1, 87.26f, 7, 1, 9 * 3600 + 31 * 60 + 7, "GPS!|87.3|GPS7| 9:31:07|0.00|(0.00"},
        {"no fix", 0, 0.0f, 0, 1, 23 * 3600 + 5, "GPS ?|0.0|GPS0|23:00:05"},
        {"navigation program", 1, 12.0f, 3, SourceTable::kMobileNavigator, 0, "MN Daten|12.0| 0:00:00"},
    };
    CSpeedView view(doc);
    for (const auto& c : cases) {
        GpsFix& fix = doc.Fix();
        fix.m_nValid = c.valid;
        fix.m_fSpeed = c.speed;
        fix.m_nSatellites = c.satellites;
        fix.m_nSource = c.source;
        fix.m_tFixTime = 1715679067 - (1715679067 % 86400) + c.localTime;
        view.OnUpdate(0);
        const QStringList texts = shownTexts(view);
        for (const QString& expected : QString::fromUtf8(c.expected).split('|'))
            EXPECT_TRUE(texts.contains(expected)) << c.legend << ": " << expected.toStdString();
    }
}

TEST(SourceSettingsPage, ApplyKeepsLoggedTypesWithoutABox) {
    ensureApplication();
    TestRoot root;
    CRegistryKey().WriteString("LogType", "$GPGGA,$GPZDA,$GPRMC");
    bool applied = false;
    CSourceSettingsPage page([&applied] { applied = true; });
    for (QPushButton* button : page.findChildren<QPushButton*>())
        if (button->text() == "Übernehmen") button->click();
    QString logged;
    CRegistryKey().ReadString("LogType", logged);
    EXPECT_TRUE(applied);
    EXPECT_TRUE(logged.split(',').contains("$GPZDA")) << logged.toStdString();
    EXPECT_TRUE(logged.split(',').contains("$GPRMC")) << logged.toStdString();
}
