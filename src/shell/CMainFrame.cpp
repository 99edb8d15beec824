#include "shell/CMainFrame.h"

#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"
#include "shell/CommandBarLayout.h"
#include "shell/PageTable.h"
#include "shell/ShellSettings.h"
#include "shell/pages/AboutBox.h"
#include "shell/ui/CPageView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QMenuBar>
#include <QScreen>
#include <QStackedWidget>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <optional>

CMainFrame::CMainFrame(PageFactory factory, QWidget* parent)
    : QMainWindow(parent), m_factory(std::move(factory)) {
    setWindowTitle(QStringLiteral("Tarvik"));
    setMinimumSize(220, 280);
    // A handheld-sized window that never exceeds a small screen.
    fitToScreen();
    m_pStack = new QStackedWidget(this);
    setCentralWidget(m_pStack);
    m_pCommandBar = new QToolBar(this);
    m_pCommandBar->setMovable(false);
    m_pCommandBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addToolBar(Qt::BottomToolBarArea, m_pCommandBar);

    m_factory.setUserPages(scanUserPages(DeviceRoot::current().programFolder()));
    for (const PageTable::Entry& entry : PageTable::kEntries)
        if (entry.kind == PageTable::Kind::PageMadeWithFrame) PageFor(entry.command);
    BuildMenu();
    CRegistryKey key;
    const int32_t preAllocKb = readSetting(key, ShellSettings::kPreAllocKB);
    if (preAllocKb > 0) m_reserve.emplace_back(qsizetype(preAllocKb) * 1024, '\0');
    devLog("Test (%d)", ReserveBlocks());
}

CMainFrame::~CMainFrame() = default;

void CMainFrame::fitToScreen() {
    // A car PC or touch screen gets all of it; a desktop a window of two thirds, in the screen's shape.
    const QRect available = screen()->availableGeometry();
    const bool smallScreen =
        available.width() <= kSmallScreen.width() || available.height() <= kSmallScreen.height();
    const QSize size = smallScreen ? available.size() : available.size() * 2 / 3;
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, available));
}

void CMainFrame::BuildMenu() {
    const auto addItem = [this](QMenu* menu, const QString& text, uint16_t command) {
        QAction* action = menu->addAction(text, this, [this, command] { RunCommand(command); });
        action->setCheckable(!PageTable::isCommandOnly(command));
        m_menuActions[command] = action;
    };
    const auto addGroup = [&addItem](QMenu* menu, PageTable::Menu group) {
        for (const PageTable::Entry* entry : PageTable::menu(group))
            addItem(menu, PageTable::menuText(*entry), entry->command);
    };
    QMenu* view = menuBar()->addMenu(QStringLiteral("Ansicht"));
    addGroup(view, PageTable::Menu::Head);
    view->addSeparator();
    const UserPageSlots& userPages = m_factory.userPages();
    for (size_t i = 0; i < userPages.size(); ++i)
        if (!userPages[i].isEmpty())
            addItem(view, userPages[i].name, uint16_t(PageTable::kFirstUserPage + i));
    addGroup(view, PageTable::Menu::Pages);
    addGroup(view->addMenu(QStringLiteral("Weitere Ansichten")), PageTable::Menu::MoreViews);
    view->addSeparator();
    addGroup(view->addMenu(QStringLiteral("Einstellungen")), PageTable::Menu::Settings);
    view->addSeparator();
    view->addAction(QStringLiteral("Beenden"), this, [this] { RunCommand(PageTable::kExit); });
}

CPageView* CMainFrame::ExistingPage(uint16_t command) const {
    const auto found = m_pages.find(command);
    return found == m_pages.end() ? nullptr : found->second;
}

CPageView* CMainFrame::PageFor(uint16_t command) {
    if (CPageView* page = ExistingPage(command)) return page;
    CPageView* page = m_factory.create(command, m_pStack);
    if (!page) return nullptr;
    m_pStack->addWidget(page);
    m_pages[command] = page;
    connect(page, &CPageView::titleChanged, this, [this, page] {
        if (page == m_pCurrentPage) UpdateTitle();
    });
    connect(page, &CPageView::memoryWanted, this, [this] { FreeMemory(true); });
    return page;
}

bool CMainFrame::SelectPage(uint16_t command) {
    CPageView* page = PageFor(command);
    if (!page) return false;
    m_bSwitching = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (page != m_pCurrentPage) {
        m_pStack->setCurrentWidget(page);
        m_pCurrentPage = page;
        m_nCurrentCommand = command;
        RebuildCommandBar();
    }
    m_bSwitching = false;
    QApplication::restoreOverrideCursor();
    CRegistryKey key;
    writeSetting(key, ShellSettings::kCurrentView, CurrentPageName());
    UpdateTitle();
    UpdateMenuChecks();
    page->OnUpdate(0);
    return true;
}

void CMainFrame::SelectPageByName(const QString& name) {
    if (const auto command = PageTable::command(name); command && SelectPage(*command)) return;
    const UserPageSlots& userPages = m_factory.userPages();
    for (size_t i = 0; i < userPages.size(); ++i)
        if (!userPages[i].isEmpty() && userPages[i].name == name &&
            SelectPage(uint16_t(PageTable::kFirstUserPage + i)))
            return;
    SelectPage(PageTable::kSourceSettings);
}

void CMainFrame::UpdateTitle() {
    const QString own = m_pCurrentPage ? m_pCurrentPage->PageTitle() : QString();
    if (!own.isEmpty()) {
        setWindowTitle(own);
        return;
    }
    setWindowTitle(QStringLiteral("Tarvik ") + CurrentPageName());
}

QString CMainFrame::CurrentPageName() const {
    const uint16_t command = m_nCurrentCommand;
    return PageTable::isUserPage(command) ? m_factory.userPages()[command - PageTable::kFirstUserPage].name
                                          : PageTable::name(command);
}

QStringList CMainFrame::PageNames() const {
    QStringList names = PageTable::choiceList(true);
    for (const UserPageSlot& slot : m_factory.userPages())
        if (!slot.isEmpty()) names << slot.name;
    return names;
}

void CMainFrame::RebuildCommandBar() {
    m_pCommandBar->clear();
    for (const PageTable::Entry* button : commandBarFor(m_nCurrentCommand)) {
        QAction* action = m_pCommandBar->addAction(QString::fromUtf8(button->picture));
        action->setData(button->command);
        action->setToolTip(QString::fromUtf8(button->name));
        connect(action, &QAction::triggered, this,
                [this, command = button->command] { RunCommand(command); });
        if (auto* widget = qobject_cast<QToolButton*>(m_pCommandBar->widgetForAction(action)))
            widget->setMinimumSize(40, 44);
    }
}

void CMainFrame::UpdateMenuChecks() {
    for (const auto& [command, action] : m_menuActions)
        action->setChecked(command == m_nCurrentCommand);
}

void CMainFrame::RunCommand(uint16_t command) {
    if (command == PageTable::kAbout) {
        showAboutBox(this);
        return;
    }
    if (command == PageTable::kExit) {
        Exit();
        return;
    }
    const auto pageCommand =
        command == PageTable::kFollowPosition    ? std::optional(PageCommand::FollowPosition)
        : command == PageTable::kExtendedMenuBar ? std::optional(PageCommand::ExtendedMenuBar)
                                                 : std::nullopt;
    if (pageCommand && m_pCurrentPage && m_pCurrentPage->OnCommand(*pageCommand)) return;
    if (!SelectPage(command)) Q_EMIT commandTriggered(command);
}

void CMainFrame::FreeMemory(bool bAggressive) {
    devLog("MyFreeMem");
    // The hidden pages let go of their cached data (the map pages of their images).
    for (const auto& [command, page] : m_pages)
        if (page != m_pCurrentPage) page->DropCachedData();
    CRegistryKey key;
    if (readSetting(key, ShellSettings::kCleanIECache) &&
        QDir(DeviceRoot::current().cacheFolder()).removeRecursively())
        devLog("IE Cache cleaned");
    if (!bAggressive || m_bSwitching) return;
    devLog("Delete pages");
    for (auto it = m_pages.begin(); it != m_pages.end();) {
        if (it->second == m_pCurrentPage) {
            ++it;
            continue;
        }
        delete it->second; // made again on its next selection
        it = m_pages.erase(it);
    }
    devLog("End MyFreeMem");
}

void CMainFrame::OnHibernate() {
    FreeMemory(true);
    devLog("OnHibernate (%d)", ReserveBlocks());
}

void CMainFrame::Exit() {
    devLog("OnClose");
    close();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    // A close by the user closes, as on any desktop; memory pressure never does.
    Q_EMIT closing();
    event->accept();
}

void CMainFrame::showRawSentence(const char* pLine, int nLength) {
    if (m_pCurrentPage) m_pCurrentPage->OnRawSentence(pLine, nLength);
}

void CMainFrame::redrawPages(uint16_t hint) {
    if (m_pCurrentPage) m_pCurrentPage->OnUpdate(hint);
    Q_EMIT pagesRedrawn(hint);
}
