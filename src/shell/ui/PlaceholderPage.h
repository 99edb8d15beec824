#pragma once

#include "shell/ui/CPageView.h"

// A page whose content this version does not have yet: it says so under the page's name, so the
// page table, the menu and the hotkeys work with every page already.
class PlaceholderPage : public CPageView {
    Q_OBJECT
public:
    explicit PlaceholderPage(const QString& pageName, QWidget* parent = nullptr);
    void OnUpdate(uint16_t) override {}
};
