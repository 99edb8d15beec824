#pragma once

#include <QString>
#include <QStringList>

// The registry value names of the hotkey assignments and the names of the actions they hold.
// Button n (1..5, the sixth code is accepted too) is the application button with key code 0xC0 + n.
namespace HotkeyNames {

inline constexpr int kButtons = 5;
inline constexpr int kHighestButton = 6;
inline constexpr const char* kNoAction = "<Keine>";

QString shortPress(int button);               // "Taste n"
QString multiPress(int count, int button);    // "k*Taste n"
QString longPress(int button);                // "Lang Taste n"
QString chord(int pendingButton, int button); // "Taste p, n"

// The actions offered, in order, before the pages ("<Keine>" first).
QStringList fixedActions();
// A page as an action: its name in angle brackets.
QString pageAction(const QString& pageName);
// The name between the angle brackets; empty when `action` is not of that form.
QString pageOf(const QString& action);

} // namespace HotkeyNames
