#include "shell/PageTable.h"

namespace PageTable {

const Entry kEntries[kCount] = {
    {0x8008, "Geschwindigkeitsanzeige", 0},
    {0x8061, "Kartenanzeige", 1},
    {0x801A, "Höhenansicht", 2},
    {0x8015, "GoTo Seite", 3},
    {0x8004, "Fahrtenbuch", 4},
    {0x8033, "MN Schnellstart", 5},
    {0x8011, "POI Konfiguration", 10},
    {0xE140, "Info über Tarvik", 9},
    {0x8014, "Einstellungen Hotkeys", 0},
    {0x802E, "Andere Einstellungen", 0},
    {0x8031, "MN AddOns", 0},
    {0x804F, "Speicher aktuelle Pos", 6},
    {0x8006, "Verfolge aktuelle Position", 0},
    {0x806F, "Erweiterte Menübar", 7},
    {0x8007, "Einstellungen Datenquelle", 0},
    {0x8056, "Satelliten", 11},
    {0x805B, "Position", 0},
    {0x805E, "Livepos", 0},
    {0x805F, "Meldungen", 0},
    {0x8062, "Kartenanzeige2", 0},
    {0x8063, "Kartenanzeige3", 0},
    {0x8064, "Kartenanzeige4", 0},
    {0x8065, "Kartenanzeige5", 0},
    {0x80EE, "Einstellungen TMC", 0},
    {0x8118, "Track", 0},
    {0x811E, "Diagramme", 0},
};

bool isCommandOnly(uint16_t command) {
    return command == kAbout || command == kStorePosition || command == kFollowPosition ||
           command == kExtendedMenuBar;
}

const Entry* entry(uint16_t command) {
    for (const Entry& e : kEntries)
        if (e.command == command) return &e;
    return nullptr;
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

QStringList choiceList(bool withDiagrams) {
    QStringList names = {"Kartenanzeige",
                         "Kartenanzeige2",
                         "Kartenanzeige3",
                         "Kartenanzeige4",
                         "Kartenanzeige5",
                         "Fahrtenbuch",
                         "Einstellungen Hotkeys",
                         "Geschwindigkeitsanzeige",
                         "POI Konfiguration",
                         "GoTo Seite",
                         "MN Schnellstart",
                         "Höhenansicht",
                         "Satelliten",
                         "Position",
                         "Andere Einstellungen",
                         "MN AddOns",
                         "Einstellungen Datenquelle",
                         "Einstellungen TMC",
                         "Track"};
    if (withDiagrams) names << QStringLiteral("Diagramme");
    return names;
}

} // namespace PageTable
