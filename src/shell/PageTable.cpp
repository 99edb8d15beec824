#include "shell/PageTable.h"

#include <algorithm>

namespace PageTable {

// clang-format off
const Entry kEntries[kCount] = {
//   command           name                          picture    menu              menu text              choice  kind
    {kSpeed,           "Geschwindigkeitsanzeige",    "Tempo",   Menu::Pages, 0,     nullptr,               7,  Kind::Page},
    {kMap,             "Kartenanzeige",              "Karte",   Menu::Pages, 1,     nullptr,               0,  Kind::Page},
    {kAltitude,        "Höhenansicht",               "Höhe",    Menu::Pages, 2,     nullptr,               11, Kind::Page},
    {kGoTo,            "GoTo Seite",                 "GoTo",    Menu::Pages, 6,     nullptr,               9,  Kind::PageMadeWithFrame},
    {kLogbook,         "Fahrtenbuch",                "Fahrten", Menu::Pages, 5,     nullptr,               5,  Kind::Page},
    {kMnQuickStart,    "MN Schnellstart",            "MN",      Menu::Pages, 8,     nullptr,               10, Kind::Page},
    {kPoiSettings,     "POI Konfiguration",          "POI",     Menu::Settings, 3,  nullptr,               8,  Kind::Page},
    {kAbout,           "Info über Tarvik",           "Info",    Menu::Head, 0,      "Info über Tarvik...", -1, Kind::Command},
    {kHotkeys,         "Einstellungen Hotkeys",      nullptr,   Menu::Settings, 5,  nullptr,               6,  Kind::PageMadeWithFrame},
    {kOtherSettings,   "Andere Einstellungen",       nullptr,   Menu::Settings, 1,  nullptr,               14, Kind::Page},
    {kMnAddOns,        "MN AddOns",                  nullptr,   Menu::Settings, 0,  nullptr,               15, Kind::PageMadeWithFrame},
    {kStorePosition,   "Speicher aktuelle Pos",      "Pos+",    Menu::None, 0,      nullptr,               -1, Kind::Command},
    {kFollowPosition,  "Verfolge aktuelle Position", nullptr,   Menu::None, 0,      nullptr,               -1, Kind::Command},
    {kExtendedMenuBar, "Erweiterte Menübar",         "Menü",    Menu::None, 0,      nullptr,               -1, Kind::Command},
    {kSourceSettings,  "Einstellungen Datenquelle",  nullptr,   Menu::Settings, 7,  nullptr,               16, Kind::Page},
    {kSatellites,      "Satelliten",                 "Sat",     Menu::Pages, 3,     nullptr,               12, Kind::Page},
    {kPosition,        "Position",                   nullptr,   Menu::Pages, 4,     nullptr,               13, Kind::Page},
    {kLivepos,         "Livepos",                    nullptr,   Menu::Settings, 4,  "Tarvik Livepos",      -1, Kind::Page},
    {kAlerts,          "Meldungen",                  nullptr,   Menu::Settings, 2,  nullptr,               -1, Kind::Page},
    {kMap2,            "Kartenanzeige2",             nullptr,   Menu::MoreViews, 0, "Kartenanzeige 2",     1,  Kind::Page},
    {kMap3,            "Kartenanzeige3",             nullptr,   Menu::MoreViews, 1, "Kartenanzeige 3",     2,  Kind::Page},
    {kMap4,            "Kartenanzeige4",             nullptr,   Menu::MoreViews, 2, "Kartenanzeige 4",     3,  Kind::Page},
    {kMap5,            "Kartenanzeige5",             nullptr,   Menu::MoreViews, 3, "Kartenanzeige 5",     4,  Kind::Page},
    {kTmcSettings,     "Einstellungen TMC",          nullptr,   Menu::Settings, 6,  nullptr,               17, Kind::Page},
    {kTrack,           "Track",                      nullptr,   Menu::Pages, 7,     nullptr,               18, Kind::Page},
    {kDiagrams,        "Diagramme",                  nullptr,   Menu::MoreViews, 4, nullptr,               19, Kind::Page},
    {kNextPoi,         "Nächste POIs",               nullptr,   Menu::None, 0,      nullptr,               -1, Kind::Page},
    {kShareSettings,   "Datenweitergabe",            nullptr,   Menu::Settings, 8,  nullptr,               -1, Kind::Page},
};
// clang-format on

const Entry* entry(uint16_t command) {
    for (const Entry& e : kEntries)
        if (e.command == command) return &e;
    return nullptr;
}

bool isCommandOnly(uint16_t command) {
    const Entry* e = entry(command);
    return e && e->kind == Kind::Command;
}

QString name(uint16_t command) {
    const Entry* e = entry(command);
    return e ? QString::fromUtf8(e->name) : QString();
}

std::optional<uint16_t> command(const QString& pageName) {
    for (const Entry& e : kEntries)
        if (pageName == QString::fromUtf8(e.name)) return e.command;
    return std::nullopt;
}

QString menuText(const Entry& e) {
    return QString::fromUtf8(e.menuText ? e.menuText : e.name);
}

QStringList pageNames() {
    QStringList names;
    for (const Entry& e : kEntries)
        if (e.kind != Kind::Command) names << QString::fromUtf8(e.name);
    return names;
}

QList<const Entry*> menu(Menu group) {
    QList<const Entry*> items;
    for (const Entry& e : kEntries)
        if (e.menu == group) items << &e;
    std::ranges::sort(items, {}, &Entry::menuPosition);
    return items;
}

QStringList choiceList(bool bWithDiagrams) {
    QList<const Entry*> offered;
    for (const Entry& e : kEntries)
        if (e.choicePosition >= 0 && (bWithDiagrams || e.command != kDiagrams)) offered << &e;
    std::ranges::sort(offered, {}, &Entry::choicePosition);
    QStringList names;
    for (const Entry* e : offered)
        names << QString::fromUtf8(e->name);
    return names;
}

} // namespace PageTable
