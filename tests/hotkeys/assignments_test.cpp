#include "integrations/hotkeys/HotkeyAssignments.h"
#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

// Which buttons are taken, which actions count and the order of the list, from a hive with
// thousands of other values.
TEST(HotkeyAssignments, ReadsActionsOfTheHive) {
    TestRoot root;
    CRegistryKey key;
    for (int i = 0; i < 10000; ++i)
        key.WriteString(QStringLiteral("Wert %1").arg(i), QStringLiteral("<Heller>"));
    const std::pair<const char*, const char*> stored[] = {
        {"Taste 2, 1", "<Reset Tour>"},
        {"Lang Taste 2", "<Reboot>"},
        {"12*Taste 2", "<Leiser>"},
        {"2*Taste 2", "<Lauter>"},
        {"Taste 2", "<Satelliten>"},
        {"taste 1", "<Keine>"},
        {"Taste 4", ""},
        {"Lang Taste 1", "<Heller>"},
        {"Taste 7", "<Heller>"},
    };
    for (const auto& [name, action] : stored)
        key.WriteString(QString::fromUtf8(name), QString::fromUtf8(action));

    QElapsedTimer clock;
    clock.start();
    const std::vector<std::pair<QString, QString>> expected = {
        {"Lang Taste 1", "<Heller>"}, {"Taste 2", "<Satelliten>"},  {"2*Taste 2", "<Lauter>"},
        {"12*Taste 2", "<Leiser>"},   {"Lang Taste 2", "<Reboot>"}, {"Taste 2, 1", "<Reset Tour>"},
    };
    EXPECT_EQ(HotkeyAssignments::list(key), expected);
    EXPECT_LT(clock.elapsed(), 2000);

    const std::pair<int, bool> registered[] = {{1, false}, {2, true}, {3, false}, {4, false}, {7, false}};
    for (const auto& [button, taken] : registered)
        EXPECT_EQ(HotkeyAssignments::isRegistered(key, button), taken) << button;
}
