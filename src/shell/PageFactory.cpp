#include "shell/PageFactory.h"

#include "shell/PageTable.h"
#include "shell/ui/PlaceholderPage.h"

CPageView* PageFactory::create(uint16_t command, QWidget* parent) const {
    for (const auto& [known, creator] : m_creators)
        if (known == command) return creator(parent);
    if (PageTable::isUserPage(command)) {
        const UserPageSlot& slot = m_userPages[command - PageTable::kFirstUserPage];
        if (slot.isEmpty()) return nullptr;
        if (m_userPageCreator) return m_userPageCreator(slot, parent);
        return new PlaceholderPage(slot.name, parent);
    }
    const PageTable::Entry* entry = PageTable::entry(command);
    if (!entry || entry->kind == PageTable::Kind::Command) return nullptr;
    return new PlaceholderPage(QString::fromUtf8(entry->name), parent);
}
