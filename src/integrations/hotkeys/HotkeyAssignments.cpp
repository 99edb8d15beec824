#include "integrations/hotkeys/HotkeyAssignments.h"

#include "integrations/hotkeys/HotkeyNames.h"
#include "settings/CRegistryKey.h"

namespace HotkeyAssignments {

QString action(CRegistryKey& key, const QString& valueName) {
    QString value;
    if (!key.ReadString(valueName, value) || value == QString::fromUtf8(HotkeyNames::kNoAction)) return {};
    return value;
}

bool isRegistered(CRegistryKey& key, int button) {
    return button >= 1 && button <= HotkeyNames::kHighestButton &&
           !action(key, HotkeyNames::shortPress(button)).isEmpty();
}

std::vector<std::pair<QString, QString>> list(CRegistryKey& key) {
    // Read name by name rather than enumerated: a hive may hold thousands of other values.
    std::vector<std::pair<QString, QString>> assignments;
    const auto take = [&](const QString& name) {
        const QString assigned = action(key, name);
        if (!assigned.isEmpty()) assignments.emplace_back(name, assigned);
    };
    for (int button = 1; button <= HotkeyNames::kHighestButton; ++button) {
        take(HotkeyNames::shortPress(button));
        for (int count = 2; count <= kHighestCount; ++count)
            take(HotkeyNames::multiPress(count, button));
        take(HotkeyNames::longPress(button));
        for (int second = 1; second <= HotkeyNames::kHighestButton; ++second)
            if (second != button) take(HotkeyNames::chord(button, second));
    }
    return assignments;
}

} // namespace HotkeyAssignments
