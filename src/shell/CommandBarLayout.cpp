#include "shell/CommandBarLayout.h"

#include "shell/PageTable.h"

QList<CommandBarButton> commandBarFor(uint16_t shownCommand) {
    QList<CommandBarButton> buttons;
    const bool mapShown = PageTable::isMapPage(shownCommand);
    for (int i = 0; i <= 6; ++i) {
        const PageTable::Entry& e = PageTable::kEntries[i];
        if (e.command == shownCommand || (mapShown && e.command == PageTable::kFirstMap)) continue;
        buttons << CommandBarButton{e.command, e.image};
    }
    if (shownCommand != PageTable::kSatellites) buttons << CommandBarButton{PageTable::kSatellites, 11};
    if (mapShown)
        buttons << CommandBarButton{PageTable::kExtendedMenuBar, 7};
    else
        buttons << CommandBarButton{PageTable::kStorePosition, 6};
    return buttons;
}
