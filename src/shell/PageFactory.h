#pragma once

#include "shell/UserPageSlots.h"

#include <cstdint>
#include <functional>
#include <vector>

class CPageView;
class QWidget;

// Creates the page object of a command (built-in pages, map pages, user page slots). The frame
// asks for a page on first use and after memory pressure deleted it.
class PageFactory {
public:
    using Creator = std::function<CPageView*(QWidget* parent)>;
    using UserPageCreator = std::function<CPageView*(const UserPageSlot& slot, QWidget* parent)>;
    // A page this factory has its own creator for; every other page of the table is shown as a
    // placeholder until its page exists.
    void add(uint16_t command, Creator creator) { m_creators.emplace_back(command, std::move(creator)); }
    void setUserPages(const UserPageSlots& slots) { m_userPages = slots; }
    // The page of a filled user page slot; without one the slot shows as a placeholder.
    void setUserPageCreator(UserPageCreator creator) { m_userPageCreator = std::move(creator); }
    const UserPageSlots& userPages() const { return m_userPages; }

    CPageView* create(uint16_t command, QWidget* parent) const;

private:
    std::vector<std::pair<uint16_t, Creator>> m_creators;
    UserPageSlots m_userPages;
    UserPageCreator m_userPageCreator;
};
