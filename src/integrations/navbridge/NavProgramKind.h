#pragma once

#include <QString>
#include <functional>
#include <optional>

// The kind of navigation program, one number for the whole process, 0 until recognised. 1 to 6 are
// the handheld's programs; 7 and 8 are the navigators Linux users run today.
namespace NavProgramKind {
constexpr int kUnknown = 0;
constexpr int kFalkMarcoPolo = 1; // command line "-e x,y" in Mercator metres
constexpr int kTomTom = 2;        // TomTom without the SDK window class: nothing is sent
constexpr int kTomTomSdk = 3;     // TomTom SDK file calls
constexpr int kMNPwc80 = 4;       // MobileNavigator, window class "Pwc80..."
constexpr int kMNBefore5 = 5;     // MobileNavigator before version 5
constexpr int kMN5 = 6;           // MobileNavigator 5 or later
constexpr int kNavit = 7;         // Navit, over the session D-Bus
constexpr int kSystemDefault = 8; // whatever the desktop opens geo: links with (xdg-open)
constexpr int kLast = kSystemDefault;

// True for the MobileNavigator kinds, which take "Routenpunkte.ini".
constexpr bool isMobileNavigator(int kind) {
    return kind == kMNPwc80 || kind == kMNBefore5 || kind == kMN5;
}

// The major file version of the program's executable, asked only when the rules need it (0 unknown).
using MajorVersion = std::function<int()>;

// A top-level window by its title and class: the kind when the window is the navigation program's,
// nothing when the search goes on with the next window. Only the first 32 characters of the title count.
std::optional<int> fromWindow(const QString& title, const QString& className,
                              const MajorVersion& majorVersion);

// The kind from the program's path. An empty path (no navigation program configured) hands
// destinations to the desktop's default.
int fromPath(const QString& path, const MajorVersion& majorVersion);

// "falk", "tomtom", "tomtom-sdk", "mn-pwc80", "mn", "mn5", "navit", "system", or the number itself;
// nothing for other texts.
std::optional<int> fromName(const QString& name);
} // namespace NavProgramKind
