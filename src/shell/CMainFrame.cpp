#include "shell/CMainFrame.h"

#include "platform/DeviceRoot.h"
#include "shell/CommandBarLayout.h"
#include "shell/PageTable.h"
#include "shell/ShellSettings.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"
#include "shell/ui/CPageView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>

namespace {

// The command-bar pictures by image index, as short words a finger can hit.
const char* const kImageTexts[12] = {"Tempo", "Karte", "Höhe", "GoTo", "Fahrten", "MN",
                                     "Pos+",  "Menü",  "",     "Info", "POI",     "Sat"};

struct MenuItem {
    const char* text; // UTF-8
    uint16_t command;
};

const MenuItem kPageItems[] = {{"Geschwindigkeitsanzeige", 0x8008},
                               {"Kartenanzeige", 0x8061},
                               {"Höhenansicht", 0x801A},
                               {"Satelliten", 0x8056},
                               {"Position", 0x805B},
                               {"Fahrtenbuch", 0x8004},
                               {"GoTo Seite", 0x8015},
                               {"Track", 0x8118},
                               {"MN Schnellstart", 0x8033}};
const MenuItem kMoreViews[] = {{"Kartenanzeige 2", 0x8062},
                               {"Kartenanzeige 3", 0x8063},
                               {"Kartenanzeige 4", 0x8064},
                               {"Kartenanzeige 5", 0x8065},
                               {"Diagramme", 0x811E}};
const MenuItem kSettingsItems[] = {{"MN AddOns", 0x8031},         {"Andere Einstellungen", 0x802E},
                                   {"Meldungen", 0x805F},         {"POI Konfiguration", 0x8011},
                                   {"Tarvik Livepos", 0x805E},    {"Einstellungen Hotkeys", 0x8014},
                                   {"Einstellungen TMC", 0x80EE}, {"Einstellungen Datenquelle", 0x8007}};
// Pages the frame makes at once; the others on first selection.
const uint16_t kPagesMadeWithTheFrame[] = {0x8015, 0x8014, 0x8031};

} // namespace

CMainFrame::CMainFrame(PageFactory factory, QWidget* parent)
    : QMainWindow(parent), m_factory(std::move(factory)) {
    setWindowTitle(QStringLiteral("Tarvik"));
    setMinimumSize(220, 280);
    // A handheld-sized window that never exceeds a small screen.
    const QSize available = screen()->availableGeometry().size();
    resize(std::min(480, available.width()), std::min(640, available.height()));
    m_pStack = new QStackedWidget(this);
    setCentralWidget(m_pStack);
    m_pCommandBar = new QToolBar(this);
    m_pCommandBar->setMovable(false);
    m_pCommandBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    addToolBar(Qt::BottomToolBarArea, m_pCommandBar);

    m_factory.setUserPages(scanUserPages(DeviceRoot::current().programFolder()));
    for (uint16_t command : kPagesMadeWithTheFrame)
        PageFor(command);
    BuildMenu();
    CRegistryKey key;
    const int32_t preAllocKb = readSetting(key, ShellSettings::kPreAllocKB);
    if (preAllocKb > 0) m_reserve.emplace_back(qsizetype(preAllocKb) * 1024, '\0');
    DevLog("Test (%d)", ReserveBlocks());
}

CMainFrame::~CMainFrame() = default;

void CMainFrame::BuildMenu() {
    QMenu* view = menuBar()->addMenu(QStringLiteral("Ansicht"));
    const auto addItem = [this](QMenu* menu, const QString& text, uint16_t command) {
        QAction* action = menu->addAction(text, this, [this, command] { RunCommand(command); });
        action->setCheckable(!PageTable::isCommandOnly(command));
        m_menuActions[command] = action;
    };
    addItem(view, QStringLiteral("Info über Tarvik..."), PageTable::kAbout);
    view->addSeparator();
    const UserPageSlots& userPages = m_factory.userPages();
    for (size_t i = 0; i < userPages.size(); ++i)
        if (!userPages[i].isEmpty())
            addItem(view, userPages[i].name, uint16_t(PageTable::kFirstUserPage + i));
    for (const MenuItem& item : kPageItems)
        addItem(view, QString::fromUtf8(item.text), item.command);
    QMenu* more = view->addMenu(QStringLiteral("Weitere Ansichten"));
    for (const MenuItem& item : kMoreViews)
        addItem(more, QString::fromUtf8(item.text), item.command);
    view->addSeparator();
    QMenu* settings = view->addMenu(QStringLiteral("Einstellungen"));
    for (const MenuItem& item : kSettingsItems)
        addItem(settings, QString::fromUtf8(item.text), item.command);
    view->addSeparator();
    view->addAction(QStringLiteral("Beenden"), this, &CMainFrame::Exit);
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
    const QString name = PageTable::isUserPage(command)
                             ? m_factory.userPages()[command - PageTable::kFirstUserPage].name
                             : PageTable::name(command);
    CRegistryKey key;
    writeSetting(key, ShellSettings::kCurrentView, name);
    setWindowTitle(QStringLiteral("Tarvik ") + name);
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

QStringList CMainFrame::PageNames() const {
    QStringList names = PageTable::choiceList(true);
    for (const UserPageSlot& slot : m_factory.userPages())
        if (!slot.isEmpty()) names << slot.name;
    return names;
}

void CMainFrame::RebuildCommandBar() {
    m_pCommandBar->clear();
    for (const CommandBarButton& button : commandBarFor(m_nCurrentCommand)) {
        QAction* action = m_pCommandBar->addAction(QString::fromUtf8(kImageTexts[button.image]));
        action->setData(button.command);
        action->setToolTip(PageTable::name(button.command));
        connect(action, &QAction::triggered, this, [this, command = button.command] { RunCommand(command); });
        if (auto* widget = qobject_cast<QToolButton*>(m_pCommandBar->widgetForAction(action)))
            widget->setMinimumSize(40, 44);
    }
}

QList<uint16_t> CMainFrame::CommandBarCommands() const {
    QList<uint16_t> commands;
    for (const QAction* action : m_pCommandBar->actions())
        commands << uint16_t(action->data().toUInt());
    return commands;
}

void CMainFrame::UpdateMenuChecks() {
    for (const auto& [command, action] : m_menuActions)
        action->setChecked(command == m_nCurrentCommand);
}

void CMainFrame::RunCommand(uint16_t command) {
    if (command == PageTable::kAbout) {
        QMessageBox::about(this, QStringLiteral("Info über Tarvik"),
                           QStringLiteral("Tarvik %1\nGPS-Begleiter").arg(QStringLiteral(TARVIK_VERSION)));
        return;
    }
    if (!SelectPage(command)) Q_EMIT commandTriggered(command);
}

void CMainFrame::FreeMemory(bool bAggressive) {
    DevLog("MyFreeMem");
    CRegistryKey key;
    if (readSetting(key, ShellSettings::kCleanIECache) &&
        QDir(DeviceRoot::current().cacheFolder()).removeRecursively())
        DevLog("IE Cache cleaned");
    if (!bAggressive || m_bSwitching) return;
    DevLog("Delete pages");
    for (auto it = m_pages.begin(); it != m_pages.end();) {
        if (it->second == m_pCurrentPage) {
            ++it;
            continue;
        }
        delete it->second; // made again on its next selection
        it = m_pages.erase(it);
    }
    DevLog("End MyFreeMem");
}

void CMainFrame::OnHibernate() {
    FreeMemory(true);
    DevLog("OnHibernate (%d)", ReserveBlocks());
}

void CMainFrame::OnSystemClose() {
    DevLog("OnClose");
    if (m_nCloseBudget-- <= 0) {
        close();
        return;
    }
    FreeMemory(true);
    DevLog("OnClose (%d)", ReserveBlocks());
}

void CMainFrame::Exit() {
    m_nCloseBudget = 0;
    OnSystemClose();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
    // A close by the user closes, as on any desktop; the budget only guards the memory-pressure path.
    Q_EMIT closing();
    event->accept();
}

void CMainFrame::showRawSentence(const char* pLine, int nLength) {
    if (m_pCurrentPage) m_pCurrentPage->OnRawSentence(pLine, nLength);
}

void CMainFrame::redrawPages(uint16_t hint) {
    if (m_pCurrentPage) m_pCurrentPage->OnUpdate(hint);
}
