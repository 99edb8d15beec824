#include "shell/IntegrationServices.h"

#include "gps/CFendixDoc.h"
#include "gps/GpsFix.h"
#include "gps/sources/SourceTable.h"
#include "integrations/livepos/CLiveposSender.h"
#include "integrations/livepos/LiveposQueue.h"
#include "integrations/template/ExpandTemplate.h"
#include "integrations/tmc/CTmcReceiver.h"
#include "integrations/tmc/TmcSettings.h"
#include "integrations/tmc/TmcTimers.h"
#include "integrations/ui/CModuleLivepos.h"
#include "integrations/ui/CModuleTMC.h"
#include "nav/goto/GoToTarget.h"
#include "platform/BatteryStatus.h"
#include "platform/DeviceClock.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "shell/PageFactory.h"
#include "shell/PageTable.h"

#include <QDesktopServices>
#include <QUrl>

IntegrationServices::IntegrationServices(const DeviceRoot& root, DeviceClock& clock, CFendixDoc& doc,
                                         CGoToTarget& target, const NavigationTarget& navTarget,
                                         QObject* parent)
    : QObject(parent), m_clock(clock), m_doc(doc), m_target(target), m_navTarget(navTarget),
      m_pTmcTimers(std::make_unique<QtTmcTimers>()) {
    CTmcReceiver::Hooks tmcHooks;
    tmcHooks.documentPort = [this] {
        const int source = m_doc.Fix().m_nSource;
        return SourceTable::isSerialPort(source) ? source : -1;
    };
    tmcHooks.satellites = [this] { return int(m_doc.Fix().m_nSatellites); };
    m_pTmc = std::make_unique<CTmcReceiver>(m_tmcStatus, *m_pTmcTimers, tmcHooks);
    connect(m_pTmcTimers.get(), &QtTmcTimers::fired, m_pTmc.get(), &CTmcReceiver::OnTimer);

    CLiveposSender::Hooks sendHooks;
    sendHooks.fix = [this] {
        const GpsFix& fix = m_doc.Fix();
        return LiveposFix{fix.m_tFixTime - m_clock.localOffset(), fix.m_fSpeed, fix.m_fCourse};
    };
    sendHooks.expand = [this](const QString& text) { return Expand(text); };
    sendHooks.localNow = [this] { return m_clock.localNow(); };
    m_pLivepos =
        std::make_unique<CLiveposSender>(root.cacheFolder(), LiveposQueue::DefaultPath(root), sendHooks);
    m_pLivepos->LoadSettings();
}

IntegrationServices::~IntegrationServices() {
    Stop();
}

TemplateSources IntegrationServices::Sources() const {
    return {&m_doc, &m_target, &m_navTarget, &m_tmcStatus, readBatteryPercent(), m_clock.localNow()};
}

QString IntegrationServices::Expand(const QString& text) const {
    return ExpandTemplate(text, Sources());
}

void IntegrationServices::AddPages(PageFactory& pages, std::function<void()> showGoTo,
                                   HandToNavigation handToNavigation) {
    pages.add(PageTable::kLivepos, [this, showGoTo, handToNavigation](QWidget* parent) {
        CModuleLivepos::Actions actions;
        actions.setGoToTarget = [this, showGoTo](double lon, double lat, const QString& name) {
            showGoTo();
            m_target.SetTarget(lon, lat, name);
        };
        actions.handToNavigation = handToNavigation;
        actions.openBrowser = [](const QString& url) {
            QDesktopServices::openUrl(QUrl(url, QUrl::TolerantMode));
        };
        return new CModuleLivepos(*m_pLivepos, actions, parent);
    });
    pages.add(PageTable::kTmcSettings, [this](QWidget* parent) {
        CRegistryKey key;
        if (!m_pTmc->Library().IsLoaded()) m_pTmc->LoadLibrary(readSetting(key, TmcSettings::kLibrary));
        return new CModuleTMC(*m_pTmc, m_tmcStatus, parent);
    });
}

void IntegrationServices::Start() {
    CRegistryKey key;
    if (m_pTmc->Mode() != 0 && m_pTmc->LoadLibrary(readSetting(key, TmcSettings::kLibrary))) m_pTmc->Start();
}

void IntegrationServices::OnUpdate(uint16_t hint) {
    if (hint & GpsChange::kPosition) m_pLivepos->SendTick();
}

bool IntegrationServices::PerformAction(const QString& action) {
    // No navigation program here has a tuner: the station search goes to Tarvik's own receiver.
    if (action != QLatin1String("<MN TMC Sendersuchlauf>")) return false;
    if (m_pTmc) m_pTmc->SearchStation();
    return true;
}

void IntegrationServices::Stop() {
    m_pLivepos->Stop();
    m_pTmc.reset();
}
