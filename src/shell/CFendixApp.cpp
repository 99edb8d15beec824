#include "shell/CFendixApp.h"

#include "gps/CFendixDoc.h"
#include "gps/OldLogPurge.h"
#include "gps/sound/DefaultAlertSounds.h"
#include "gps/sound/SoundController.h"
#include "gps/sources/DocumentSource.h"
#include "gps/sources/SourceSettings.h"
#include "gps/ui/CAltitudeView.h"
#include "gps/ui/CLogbookView.h"
#include "gps/ui/CModuleDiagram.h"
#include "gps/ui/CPositionView.h"
#include "gps/ui/CSatelliteView.h"
#include "gps/ui/CSourceSettingsPage.h"
#include "gps/ui/CSpeedView.h"
#include "maps/ui/CMapView.h"
#include "nav/poi/PoiLoader.h"
#include "nav/ui/CNextPoiView.h"
#include "nav/ui/CPOIView.h"
#include "platform/audio/QtNoiseMeter.h"
#include "platform/audio/QtSoundOutput.h"
#include "platform/session/MemoryPressure.h"
#include "platform/session/TerminationSignals.h"
#include "platform/session/ThreadPriority.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"
#include "settings/RegistryHive.h"
#include "shell/CMainFrame.h"
#include "shell/PageTable.h"
#include "shell/ShellSettings.h"
#include "shell/TouchStyle.h"
#include "shell/pages/CSettingsPage.h"

#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <QScreen>

CFendixApp::CFendixApp(const DeviceRoot& root) : m_root(root), m_clock(SystemDeviceClock::SetTime::Allowed) {}

CFendixApp::~CFendixApp() {
    Shutdown();
}

bool CFendixApp::InitInstance(bool bFullScreen, const QString& startPage) {
    devLog("ver: %s", TARVIK_VERSION);
    CRegistryKey key;
    m_pDoc = std::make_unique<CFendixDoc>(m_root, m_clock);
    m_pDoc->LoadSettings();
    m_pSource = std::make_unique<DocumentSource>(*m_pDoc, m_root, m_clock);
    m_pSource->setMessageHandler([this](const QString& text) { ShowNotice(text); });

    qApp->setStyleSheet(QString::fromLatin1(TouchStyle::kStyleSheet));
    m_pPois = std::make_unique<PoiLoader>();
    m_pFrame = std::make_unique<CMainFrame>(MakePages());
    m_pDoc->SetPageHooks(m_pFrame.get());
    connect(m_pFrame.get(), &CMainFrame::closing, this, &CFendixApp::Shutdown);
    WatchSettingsWrites();

    m_pSoundOutput = std::make_unique<QtSoundOutput>();
    m_pNoiseMeter = std::make_unique<QtNoiseMeter>();
    DefaultAlertSounds::install(m_root);
    m_pSounds = std::make_unique<SoundController>(*m_pSoundOutput, *m_pNoiseMeter, m_root, m_pDoc->Fix());
    m_pSounds->loadSettings();
    m_pDoc->SetAlertHooks(m_pSounds.get());

    m_pFrame->SelectPageByName(!startPage.isEmpty() ? startPage
                                                    : readStoredSetting(key, ShellSettings::kCurrentView)
                                                          .value_or(PageTable::name(PageTable::kSpeed)));
    if (bFullScreen) {
        m_pFrame->setGeometry(m_pFrame->screen()->geometry()); // also without a window manager (kiosk)
        m_pFrame->showFullScreen();
    } else {
        m_pFrame->show();
    }

    m_pPois->start();
    m_pSource->start();
    m_purgeThread = OldLogPurge::start(m_root, m_clock, m_purgeStop);
    StartAutoStartProgram();

    m_idleInhibitor.hold(readSetting(key, ShellSettings::kNoPowerdown));
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) { ApplyLowPriority(state == Qt::ApplicationActive); });
    m_pSignals = new TerminationSignals(this);
    connect(m_pSignals, &TerminationSignals::terminationRequested, m_pFrame.get(), &CMainFrame::Exit);
    m_pPressure = new MemoryPressure(this);
    connect(m_pPressure, &MemoryPressure::pressure, m_pFrame.get(), &CMainFrame::OnHibernate);
    return true;
}

void CFendixApp::WatchSettingsWrites() {
    const std::shared_ptr<RegistryHive> hive = RegistryHive::current();
    if (!hive) return;
    // Said once, then the program keeps running on what it has in memory.
    const auto notice = [this] {
        ShowNotice(QStringLiteral("Die Einstellungen können nicht gespeichert werden "
                                  "(Datei %1 nicht beschreibbar). Änderungen gehen beim Beenden verloren.")
                       .arg(m_root.registryFile()));
    };
    if (!hive->isWritable()) {
        notice();
        return;
    }
    hive->setWriteFailureHandler(
        [this, notice] { QMetaObject::invokeMethod(this, notice, Qt::QueuedConnection); });
}

// The pages that have a class of their own; every other page of the table shows as a placeholder.
PageFactory CFendixApp::MakePages() {
    PageFactory pages;
    pages.add(PageTable::kSpeed, [this](QWidget* parent) { return new CSpeedView(*m_pDoc, parent); });
    // Five independent map views, each with its own catalogue and settings key.
    for (int instance = 0; instance < 5; ++instance)
        pages.add(uint16_t(PageTable::kMap + instance),
                  [this, instance](QWidget* parent) { return new CMapView(*m_pDoc, instance, parent); });
    pages.add(PageTable::kSourceSettings, [this](QWidget* parent) {
        return new CSourceSettingsPage([this] { m_pDoc->UpdateSettings(true); }, parent);
    });
    pages.add(PageTable::kOtherSettings, [this](QWidget* parent) {
        CSettingsPage::Actions actions;
        actions.volumeSettingsChanged = [this] {
            m_pSounds->loadVolumeSettings();
            // Storing the speed or noise volume settings brings the user's base volume back to neutral.
            m_pSounds->setBaseVolume(kNeutralBaseVolume);
            m_pSounds->updateVolume(true);
        };
        actions.noPowerdownChanged = [this](bool on) { m_idleInhibitor.hold(on); };
        return new CSettingsPage(actions, parent);
    });
    pages.add(PageTable::kPoiSettings, [this](QWidget* parent) {
        return new CPOIView(
            *m_pPois, [this] { m_pFrame->SelectPage(PageTable::kNextPoi); }, parent);
    });
    pages.add(PageTable::kNextPoi, [this](QWidget* parent) {
        // The position counts as unknown while a coordinate is exactly 0, as the GoTo target does.
        const auto gpsPosition = [this]() -> std::optional<GeoPosition> {
            const GpsFix& fix = m_pDoc->Fix();
            if (fix.m_dPosLong == 0 || fix.m_dPosLat == 0) return std::nullopt;
            return GeoPosition{fix.m_dPosLat, fix.m_dPosLong};
        };
        // No GoTo target until the GoTo page exists; the page's targetChosen waits for it as well.
        return new CNextPoiView(
            *m_pPois, gpsPosition, [] { return std::optional<GeoPosition>(); }, parent);
    });
    pages.add(PageTable::kAltitude, [this](QWidget* parent) { return new CAltitudeView(*m_pDoc, parent); });
    pages.add(PageTable::kSatellites,
              [this](QWidget* parent) { return new CSatelliteView(*m_pDoc, parent); });
    pages.add(PageTable::kPosition, [this](QWidget* parent) { return new CPositionView(*m_pDoc, parent); });
    pages.add(PageTable::kDiagrams, [this](QWidget* parent) { return new CModuleDiagram(*m_pDoc, parent); });
    pages.add(PageTable::kLogbook, [this](QWidget* parent) {
        return new CLogbookView(
            *m_pDoc, [this](const QString& log) { ShowLogInDiagrams(log); }, parent);
    });
    pages.add(PageTable::kAlerts,
              [this](QWidget* parent) { return new CModuleAlerts(AlertActions(), parent); });
    return pages;
}

CModuleAlerts::Actions CFendixApp::AlertActions() {
    return {[this] { m_pSounds->loadAlertSounds(); },
            [this](const QString& file) { m_pSoundOutput->playFile(file); },
            [this] { return m_pSounds->isSoundOn(); },
            [this](bool bOn) {
                m_pSounds->setSoundOn(bOn);
                m_pSounds->updateVolume(true);
            }};
}

void CFendixApp::ShowLogInDiagrams(const QString& log) {
    if (m_pFrame->SelectPage(PageTable::kDiagrams))
        if (auto* diagrams = qobject_cast<CModuleDiagram*>(m_pFrame->CurrentPage())) diagrams->ShowLog(log);
}

void CFendixApp::StartAutoStartProgram() {
    CRegistryKey key;
    QString program = readSetting(key, ShellSettings::kAutoStart);
    program.replace('/', '\\');
    // Waiting for the navigation program ("PostNavi") needs its window to be found; until then the
    // program is not started at all rather than too early.
    if (program.isEmpty() || readSetting(key, ShellSettings::kPostNavi)) return;
    QProcess::startDetached(m_root.hostPath(program), {}); // a failed start is not reported
}

void CFendixApp::ApplyLowPriority(bool bActive) {
    if (bActive) {
        if (m_bLowPriority) setCurrentThreadBelowNormal(false);
        m_bLowPriority = false;
        return;
    }
    CRegistryKey key;
    if (readSetting(key, ShellSettings::kLowPriority)) m_bLowPriority = setCurrentThreadBelowNormal(true);
}

void CFendixApp::ShowNotice(const QString& text) {
    auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Tarvik"), text, QMessageBox::Ok,
                                m_pFrame.get());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open(); // never blocks the sentences behind it
}

void CFendixApp::Shutdown() {
    if (m_bShutDown || !m_pDoc) return;
    m_bShutDown = true;
    m_pDoc->StopSource();
    m_pDoc->SetAlertHooks(nullptr);
    m_pSounds->shutdown();
    m_pDoc->SaveAndClose();
    m_idleInhibitor.hold(false);
    m_pPois->stop();
    m_purgeStop.set();
    if (m_purgeThread.joinable()) m_purgeThread.join();
    QCoreApplication::quit();
}
