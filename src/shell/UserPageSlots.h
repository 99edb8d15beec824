#pragma once

#include <QString>
#include <array>

// The twenty user page slots, filled from the "*.ini" files of the program folder that name
// themselves in "[Global]" "Name"; slot i answers to command 0x8034 + i.
struct UserPageSlot {
    QString file; // full host path; empty for an empty slot
    QString name;
    bool isEmpty() const { return file.isEmpty(); }
};

using UserPageSlots = std::array<UserPageSlot, 20>;

// Files without that key are skipped; a 21st page is ignored. Files are taken in name order.
UserPageSlots scanUserPages(const QString& programFolder);
