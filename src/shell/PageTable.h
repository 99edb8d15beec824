#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

// Every built-in page and command, one row each: the name is what "CurrentView" stores, what the
// title shows and what hotkeys name; the row also says where the menu "Ansicht" and the page choice
// list show it and whether it has a command-bar button. A new page is one row here plus the
// creator of its class registered with the page factory.
namespace PageTable {

inline constexpr uint16_t kSpeed = 0x8008;
inline constexpr uint16_t kMap = 0x8061; // the first of five independent map views
inline constexpr uint16_t kAltitude = 0x801A;
inline constexpr uint16_t kGoTo = 0x8015;
inline constexpr uint16_t kLogbook = 0x8004;
inline constexpr uint16_t kMnQuickStart = 0x8033;
inline constexpr uint16_t kPoiSettings = 0x8011;
inline constexpr uint16_t kAbout = 0xE140;
inline constexpr uint16_t kHotkeys = 0x8014;
inline constexpr uint16_t kOtherSettings = 0x802E;
inline constexpr uint16_t kMnAddOns = 0x8031;
inline constexpr uint16_t kStorePosition = 0x804F;
inline constexpr uint16_t kFollowPosition = 0x8006;
inline constexpr uint16_t kExtendedMenuBar = 0x806F; // the map page's extended command bar
inline constexpr uint16_t kSourceSettings = 0x8007;
inline constexpr uint16_t kSatellites = 0x8056;
inline constexpr uint16_t kPosition = 0x805B;
inline constexpr uint16_t kLivepos = 0x805E;
inline constexpr uint16_t kAlerts = 0x805F;
inline constexpr uint16_t kMap2 = 0x8062;
inline constexpr uint16_t kMap3 = 0x8063;
inline constexpr uint16_t kMap4 = 0x8064;
inline constexpr uint16_t kMap5 = 0x8065;
inline constexpr uint16_t kTmcSettings = 0x80EE;
inline constexpr uint16_t kTrack = 0x8118;
inline constexpr uint16_t kDiagrams = 0x811E;
inline constexpr uint16_t kShareSettings = 0x8120;
inline constexpr uint16_t kNextPoi = 0x8012; // the nearest-POI page, reached from the POI page

inline constexpr uint16_t kFirstUserPage = 0x8034; // user page slot i answers to kFirstUserPage + i
inline constexpr int kUserSlots = 20;
inline constexpr uint16_t kExit = 0x8049;

// Where the menu "Ansicht" shows an entry: at its head, among the pages after the user pages, in
// the submenu "Weitere Ansichten" or in the submenu "Einstellungen".
enum class Menu : uint8_t { None, Head, Pages, MoreViews, Settings };

enum class Kind : uint8_t {
    Page,
    PageMadeWithFrame, // created with the frame instead of on first selection
    Command,           // runs a command instead of showing a page
};

struct Entry {
    uint16_t command;
    const char* name;    // UTF-8
    const char* picture; // the word on its command-bar button; nullptr: no button of its own
    Menu menu;
    int menuPosition;     // place within its menu group
    const char* menuText; // nullptr: the name
    int choicePosition;   // place in the page choice list; -1: not offered
    Kind kind;
};

// In this order: the command bar takes its first buttons from the first seven entries.
constexpr int kCount = 28;
extern const Entry kEntries[kCount];
constexpr int kCommandBarPages = 7;

inline bool isMapPage(uint16_t command) {
    return command >= kMap && command <= kMap5; // the five map pages are consecutive commands
}
inline bool isUserPage(uint16_t command) {
    return command >= kFirstUserPage && command < kFirstUserPage + kUserSlots;
}
bool isCommandOnly(uint16_t command);

const Entry* entry(uint16_t command);
QString name(uint16_t command); // empty when the command is not in the table
std::optional<uint16_t> command(const QString& name);
QString menuText(const Entry& entry);
// The names of the pages, in table order; commands are left out.
QStringList pageNames();

// The entries of one menu group in menu order.
QList<const Entry*> menu(Menu group);
// The names offered wherever the user picks a page, before the user pages; the diagram page only
// when it is available.
QStringList choiceList(bool bWithDiagrams);

} // namespace PageTable
