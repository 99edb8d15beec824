#pragma once

#include "gps/DocumentHooks.h"
#include "shell/PageFactory.h"

#include <QByteArray>
#include <QMainWindow>
#include <map>

class CPageView;
class QStackedWidget;
class QToolBar;

// The one window: shows one page at a time, switches pages by command or name, remembers the page
// in "CurrentView", keeps the menu "Ansicht" and the command bar in step, and gives memory back
// when the system asks. Pages are created on first use and kept.
class CMainFrame : public QMainWindow, public PageHooks {
    Q_OBJECT
public:
    explicit CMainFrame(PageFactory factory, QWidget* parent = nullptr);
    ~CMainFrame() override;

    // Shows the page of `command` (built-in, map or user page); false when it has no page.
    bool SelectPage(uint16_t command);
    // Looks the name up in the page table, then among the user pages; else the data source page.
    void SelectPageByName(const QString& name);
    QStringList PageNames() const;
    uint16_t CurrentCommand() const { return m_nCurrentCommand; }
    // The shown page's name (a user page's own name); empty before the first page.
    QString CurrentPageName() const;
    CPageView* CurrentPage() const { return m_pCurrentPage; }
    // The page object of a command if it exists (not created here).
    CPageView* ExistingPage(uint16_t command) const;

    // Drops cached data; when aggressive (and not in a page switch) deletes every page but the shown one.
    void FreeMemory(bool bAggressive);
    // The system asks for memory: every request frees memory, and none closes the program mid-drive.
    void OnHibernate();
    // The exit command, SIGTERM and the user's close: always close.
    void Exit();
    int ReserveBlocks() const { return int(m_reserve.size()); }

    // PageHooks
    void showRawSentence(const char* pLine, int nLength) override;
    void refreshModules(bool) override {}
    void redrawPages(uint16_t hint) override;

Q_SIGNALS:
    // The frame closes for real: stop the source, save and close the document.
    void closing();
    void commandTriggered(uint16_t command);
    // After every document update, whichever page is shown (the services beside the pages follow it).
    void pagesRedrawn(uint16_t hint);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // Screens up to this size (car PCs, touch screens, handhelds) are filled by the window.
    static constexpr QSize kSmallScreen{1024, 768};

    void fitToScreen();
    void BuildMenu();
    void RebuildCommandBar();
    void UpdateMenuChecks();
    // The shown page's own title, else "Tarvik " and its name.
    void UpdateTitle();
    void RunCommand(uint16_t command);
    CPageView* PageFor(uint16_t command);

    PageFactory m_factory;
    QStackedWidget* m_pStack;
    QToolBar* m_pCommandBar;
    std::map<uint16_t, CPageView*> m_pages;
    std::map<uint16_t, QAction*> m_menuActions;
    CPageView* m_pCurrentPage = nullptr;
    uint16_t m_nCurrentCommand = 0;
    bool m_bSwitching = false;
    std::vector<QByteArray> m_reserve;
};
