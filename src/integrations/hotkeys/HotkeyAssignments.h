#pragma once

#include <QString>
#include <utility>
#include <vector>

class CRegistryKey;

// The actions assigned to the press kinds, read from the settings key: one string value each, named
// as HotkeyNames builds them; missing or "<Keine>" is no action.
namespace HotkeyAssignments {

inline constexpr int kHighestCount = 99; // the most presses one value name can hold

// The assigned action; empty when there is none.
QString action(CRegistryKey& key, const QString& valueName);
// A button sends messages only when its short press has an action; the others keep their normal
// function, so their double, long and chord presses do nothing.
bool isRegistered(CRegistryKey& key, int button);
// Every assignment with an action, as (canonical value name, action): button by button, the short
// press, the multiple presses by count, the long press, then the chords.
std::vector<std::pair<QString, QString>> list(CRegistryKey& key);

} // namespace HotkeyAssignments
