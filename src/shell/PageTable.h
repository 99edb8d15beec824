#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

// The built-in pages and commands by number: the name is what "CurrentView" stores, what the
// title shows and what hotkeys name; the image is the command-bar picture (0 for none).
namespace PageTable {

struct Entry {
    uint16_t command;
    const char* name; // UTF-8
    int image;
};

constexpr int kCount = 26;
extern const Entry kEntries[kCount];

constexpr uint16_t kSpeed = 0x8008;
constexpr uint16_t kFirstMap = 0x8061; // the five map pages are 0x8061..0x8065
constexpr uint16_t kLastMap = 0x8065;
constexpr uint16_t kAbout = 0xE140;
constexpr uint16_t kOtherSettings = 0x802E;
constexpr uint16_t kStorePosition = 0x804F;
constexpr uint16_t kFollowPosition = 0x8006;
constexpr uint16_t kExtendedMenuBar = 0x806F;
constexpr uint16_t kSourceSettings = 0x8007;
constexpr uint16_t kSatellites = 0x8056;
constexpr uint16_t kDiagrams = 0x811E;
constexpr uint16_t kFirstUserPage = 0x8034; // slot i answers to 0x8034 + i
constexpr int kUserSlots = 20;
constexpr uint16_t kExit = 0x8049;

inline bool isMapPage(uint16_t command) {
    return command >= kFirstMap && command <= kLastMap;
}
inline bool isUserPage(uint16_t command) {
    return command >= kFirstUserPage && command < kFirstUserPage + kUserSlots;
}
// Entries that run a command instead of showing a page.
bool isCommandOnly(uint16_t command);

QString name(uint16_t command); // empty when the command is not in the table
std::optional<uint16_t> command(const QString& name);
const Entry* entry(uint16_t command);

// The names offered wherever the user picks a page, before the user pages; "Diagramme" only when
// the diagram page is available.
QStringList choiceList(bool withDiagrams);

} // namespace PageTable
