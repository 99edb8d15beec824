#pragma once

#include "shell/PageTable.h"

#include <QString>
#include <array>

// The twenty user page slots, filled from the "*.ini" files of the program folder that name
// themselves in "[Global]" "Name"; slot i answers to command PageTable::kFirstUserPage + i.
struct UserPageSlot {
    QString file; // full host path; empty for an empty slot
    QString name;
    bool isEmpty() const { return file.isEmpty(); }
};

using UserPageSlots = std::array<UserPageSlot, PageTable::kUserSlots>;

// Files without that key are skipped; a 21st page is ignored. Files are taken in name order.
UserPageSlots scanUserPages(const QString& programFolder);
