#include "shell/CommandBarLayout.h"

QList<const PageTable::Entry*> commandBarFor(uint16_t shownCommand) {
    namespace P = PageTable;
    QList<const P::Entry*> buttons;
    const bool mapShown = P::isMapPage(shownCommand);
    for (int i = 0; i < P::kCommandBarPages; ++i) {
        const P::Entry& e = P::kEntries[i];
        if (e.command == shownCommand || (mapShown && e.command == P::kMap)) continue;
        buttons << &e;
    }
    if (shownCommand != P::kSatellites) buttons << P::entry(P::kSatellites);
    buttons << P::entry(mapShown ? P::kExtendedMenuBar : P::kStorePosition);
    return buttons;
}
