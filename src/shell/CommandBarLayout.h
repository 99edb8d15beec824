#pragma once

#include "shell/PageTable.h"

#include <QList>

// The buttons of the command bar for the page shown, rebuilt at every page switch: the first seven
// pages but the one shown (and no second map button on a map page), the satellites unless shown,
// then the map page's extended menu bar or, elsewhere, "store the current position".
QList<const PageTable::Entry*> commandBarFor(uint16_t shownCommand);
