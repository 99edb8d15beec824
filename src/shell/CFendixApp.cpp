#include "shell/CFendixApp.h"

#include "gps/CFendixDoc.h"
#include "gps/OldLogPurge.h"
#include "gps/TrackLogReader.h"
#include "gps/sound/DefaultAlertSounds.h"
#include "gps/sound/SoundController.h"
#include "gps/sources/DocumentSource.h"
#include "gps/sources/SourceSettings.h"
#include "gps/sources/SourceTable.h"
#include "gps/ui/CAltitudeView.h"
#include "gps/ui/CLogbookView.h"
#include "gps/ui/CModuleDiagram.h"
#include "gps/ui/CPositionView.h"
#include "gps/ui/CSatelliteView.h"
#include "gps/ui/CShareSettingsPage.h"
#include "gps/ui/CSourceSettingsPage.h"
#include "gps/ui/CSpeedView.h"
#include "integrations/navbridge/NavBridgeSettings.h"
#include "integrations/navbridge/NavInfoFile.h"
#include "integrations/navbridge/NavigationBridge.h"
#include "integrations/navbridge/PostNaviStart.h"
#include "integrations/navbridge/QuickStartTargets.h"
#include "integrations/navbridge/RouteAdvance.h"
#include "integrations/template/ExpandTemplate.h"
#include "integrations/ui/CMNAddOnPage.h"
#include "integrations/ui/CModuleCustom.h"
#include "integrations/ui/CModuleMNFastStart.h"
#include "integrations/ui/CNavOverlay.h"
#include "maps/shapes/ShapeLayers.h"
#include "maps/ui/CMapView.h"
#include "maps/ui/overlays/MapOverlays.h"
#include "nav/GeoSphere.h"
#include "nav/goto/GoToTarget.h"
#include "nav/goto/TargetNames.h"
#include "nav/goto/VantrelText.h"
#include "nav/goto/WaypointFilePath.h"
#include "nav/poi/PoiLoader.h"
#include "nav/track/Measurement.h"
#include "nav/track/TrackSettings.h"
#include "nav/ui/CGoToView.h"
#include "nav/ui/CModuleTrack.h"
#include "nav/ui/CNextPoiView.h"
#include "nav/ui/CPOIView.h"
#include "nav/waypoints/WaypointList.h"
#include "platform/EvdevKeys.h"
#include "platform/audio/QtNoiseMeter.h"
#include "platform/audio/QtSoundOutput.h"
#include "platform/session/Backlight.h"
#include "platform/session/MemoryPressure.h"
#include "platform/session/SystemReboot.h"
#include "platform/session/TerminationSignals.h"
#include "platform/session/ThreadPriority.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"
#include "settings/RegistryHive.h"
#include "shell/CMainFrame.h"
#include "shell/IntegrationServices.h"
#include "shell/PageTable.h"
#include "shell/ShellSettings.h"
#include "shell/TouchStyle.h"
#include "shell/hotkeys/CAutoActions.h"
#include "shell/hotkeys/CHotkeyActions.h"
#include "shell/hotkeys/CHotkeyInput.h"
#include "shell/hotkeys/FlashNotice.h"
#include "shell/hotkeys/HotkeySettings.h"
#include "shell/pages/CHotkeyView.h"
#include "shell/pages/CSettingsPage.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDir>
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
    m_pTarget = std::make_unique<CGoToTarget>();
    m_pWaypoints = std::make_unique<CWaypointList>();
    m_pWaypoints->Load(WaypointFilePath(m_root));
    m_pMeasurement = std::make_unique<CMeasurement>();
    if (const QString track = readSetting(key, TrackSettings::kTrack); !track.isEmpty()) {
        QString error;
        LoadTrackFile(track, LogReader(), m_mapTrack, error);
    }
    connect(m_pTarget.get(), &CGoToTarget::changed, this, &CFendixApp::SendSimulationTarget);
    m_pBridge = std::make_unique<NavigationBridge>(m_root, m_navTarget);
    m_pServices = std::make_unique<IntegrationServices>(m_root, m_clock, *m_pDoc, *m_pTarget, m_navTarget);
    m_pFrame = std::make_unique<CMainFrame>(MakePages());
    m_pDoc->SetPageHooks(m_pFrame.get());
    connect(m_pFrame.get(), &CMainFrame::pagesRedrawn, m_pServices.get(), &IntegrationServices::OnUpdate);
    connect(m_pFrame.get(), &CMainFrame::closing, this, &CFendixApp::Shutdown);
    connect(m_pFrame.get(), &CMainFrame::commandTriggered, this, [this](uint16_t command) {
        if (command == PageTable::kStorePosition) StorePosition();
    });
    WatchSettingsWrites();

    m_pSoundOutput = std::make_unique<QtSoundOutput>();
    m_pNoiseMeter = std::make_unique<QtNoiseMeter>();
    DefaultAlertSounds::install(m_root);
    m_pSounds = std::make_unique<SoundController>(*m_pSoundOutput, *m_pNoiseMeter, m_root, m_pDoc->Fix());
    m_pSounds->loadSettings();
    m_pDoc->SetAlertHooks(m_pSounds.get());
    StartHotkeys();

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
    if (const QString error = m_pSource->controller().updateSharing(); !error.isEmpty()) ShowNotice(error);
    m_purgeThread = OldLogPurge::start(m_root, m_clock, m_purgeStop);
    StartAutoStartProgram();
    StartNavigationProgram();
    m_pAutoActions->Start();
    m_pServices->Start();

    m_idleInhibitor.hold(readSetting(key, ShellSettings::kNoPowerdown));
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) { ApplyLowPriority(state == Qt::ApplicationActive); });
    m_pSignals = new TerminationSignals(this);
    connect(m_pSignals, &TerminationSignals::terminationRequested, m_pFrame.get(), &CMainFrame::Exit);
    m_pPressure = new MemoryPressure(this);
    connect(m_pPressure, &MemoryPressure::pressure, m_pFrame.get(), &CMainFrame::OnHibernate);
    return true;
}

void CFendixApp::StartHotkeys() {
    m_pNotice = new FlashNotice(m_pFrame.get());
    m_pBacklight = std::make_unique<Backlight>(QDBusConnection::systemBus());
    CHotkeyActions::Services services;
    services.pFrame = m_pFrame.get();
    services.pDoc = m_pDoc.get();
    services.pSounds = m_pSounds.get();
    services.pBacklight = m_pBacklight.get();
    services.storePosition = [this] { StorePosition(); };
    services.showNotice = [this](const QString& text) { m_pNotice->Flash(text); };
    services.reboot = [] { return requestReboot(QDBusConnection::systemBus()); };
    m_pActions = std::make_unique<CHotkeyActions>(services);
    m_pDeviceKeys = new EvdevKeys(QStringLiteral("/dev/input"), this);
    m_pHotkeys = new CHotkeyInput(*m_pActions, m_pDeviceKeys, this);
    qApp->installEventFilter(m_pHotkeys);
    m_pAutoActions = new CAutoActions(*m_pActions, this);
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
    pages.add(PageTable::kSpeed, [this](QWidget* parent) {
        return new CSpeedView(*m_pDoc, parent, [this] { return TargetDistance(); });
    });
    // Five independent map views, each with its own catalogue and settings key.
    for (int instance = 0; instance < 5; ++instance)
        pages.add(uint16_t(PageTable::kMap + instance), [this, instance](QWidget* parent) {
            auto* view = new CMapView(*m_pDoc, instance, parent);
            view->SetGoToTarget(m_pTarget.get());
            view->SetNavLastClick([this] { return m_pBridge->LastClick(); });
            MapOverlaySources sources;
            OpenShapes();
            sources.shapes = [this] { return Shapes(); };
            sources.track = [this]() -> const TrackVertices& { return m_mapTrack; };
            sources.pPois = m_pPois.get();
            sources.pWaypoints = m_pWaypoints.get();
            sources.pTarget = m_pTarget.get();
            sources.pMeasurement = m_pMeasurement.get();
            AddMapOverlays(*view, sources);
            return view;
        });
    pages.add(PageTable::kGoTo, [this](QWidget* parent) {
        CGoToView::Services services;
        services.fix = [this] {
            const GpsFix& fix = m_pDoc->Fix();
            return GoToFix{fix.hasFix(),
                           fix.m_dPosLong,
                           fix.m_dPosLat,
                           fix.m_fSpeed,
                           fix.m_fCourse,
                           fix.m_fAltitude,
                           fix.m_nSource == SourceTable::kMobileNavigator};
        };
        services.localNow = [this] { return LocalNow(); };
        services.pSound = m_pSoundOutput.get();
        services.showMap = [this] { m_pFrame->SelectPage(PageTable::kMap); };
        services.setNavigationTarget = [this](double lon, double lat, const QString& name) {
            HandToNavigation(lon, lat, name);
        };
        services.navMapCentre = [this] { return m_pBridge->MapCentre(); };
        services.navLastClick = [this] { return m_pBridge->LastClick(); };
        return new CGoToView(*m_pTarget, *m_pWaypoints, m_pWaypoints->Path(), services, parent);
    });
    pages.add(PageTable::kTrack, [this](QWidget* parent) {
        auto* page = new CModuleTrack(*m_pTarget, LogReader(), {}, parent);
        page->SetMeasurement(m_pMeasurement.get());
        m_mapTrack = page->Track();
        connect(page, &CModuleTrack::trackChanged, this, [this, page] { m_mapTrack = page->Track(); });
        return page;
    });
    pages.add(PageTable::kShareSettings, [this](QWidget* parent) {
        return new CShareSettingsPage([this] { return m_pSource->controller().updateSharing(); }, parent);
    });
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
    // Made with the frame, before the buttons exist: it reaches them only when used.
    pages.add(PageTable::kHotkeys, [this](QWidget* parent) {
        CHotkeyView::Services services;
        services.pageNames = [this] { return m_pFrame ? m_pFrame->PageNames() : QStringList(); };
        services.captureKey = [this](CHotkeyInput::Capture capture) {
            if (m_pHotkeys) m_pHotkeys->CaptureNextKey(std::move(capture));
        };
        services.keysChanged = [this] {
            if (m_pHotkeys) m_pHotkeys->LoadKeys();
        };
        services.deviceState = [this] {
            if (!m_pDeviceKeys) return QString();
            if (m_pDeviceKeys->IsOpen()) return QStringLiteral("Gelesen: %1").arg(m_pDeviceKeys->OpenPath());
            if (!m_pDeviceKeys->Problem().isEmpty()) return m_pDeviceKeys->Problem();
            CRegistryKey key;
            return readSetting(key, HotkeySettings::kDevice).isEmpty()
                       ? QString()
                       : QStringLiteral("Nicht angeschlossen; wird gelesen, sobald es da ist.");
        };
        return new CHotkeyView(services, parent);
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
        const auto target = [this]() -> std::optional<GeoPosition> {
            double lon = 0, lat = 0;
            if (!m_pTarget->GetTarget(lon, lat)) return std::nullopt;
            return GeoPosition{lat, lon};
        };
        auto* page = new CNextPoiView(*m_pPois, gpsPosition, target, parent,
                                      [this] { return m_pBridge->MapCentre(); });
        connect(page, &CNextPoiView::targetChosen, m_pTarget.get(), &CGoToTarget::SetTarget);
        return page;
    });
    m_pServices->AddPages(
        pages, [this] { m_pFrame->SelectPage(PageTable::kGoTo); },
        [this](double lon, double lat, const QString& name) { HandToNavigation(lon, lat, name); });
    pages.add(PageTable::kAltitude, [this](QWidget* parent) { return new CAltitudeView(*m_pDoc, parent); });
    pages.add(PageTable::kSatellites,
              [this](QWidget* parent) { return new CSatelliteView(*m_pDoc, parent); });
    pages.add(PageTable::kPosition, [this](QWidget* parent) { return new CPositionView(*m_pDoc, parent); });
    pages.add(PageTable::kDiagrams, [this](QWidget* parent) { return new CModuleDiagram(*m_pDoc, parent); });
    pages.add(PageTable::kLogbook, [this](QWidget* parent) {
        return new CLogbookView(
            *m_pDoc, [this](const QString& log) { ShowLogInDiagrams(log); }, parent);
    });
    pages.add(PageTable::kMnAddOns, [this](QWidget* parent) {
        return new CMNAddOnPage(
            [this] {
                m_pOverlay->LoadSettings();
                LoadRouteAdvance();
            },
            parent);
    });
    pages.add(PageTable::kMnQuickStart, [this](QWidget* parent) {
        CModuleMNFastStart::Actions actions;
        actions.navigate = [this](double lon, double lat, const QString& name) {
            return m_pBridge->NavigateTo(lon, lat, name);
        };
        actions.bringToFront = [this](QString& error) { return m_pBridge->BringToFront(error); };
        return new CModuleMNFastStart(QDir(m_root.programFolder()).filePath(QuickStartTargets::kFileName),
                                      actions, parent);
    });
    pages.add(PageTable::kAlerts,
              [this](QWidget* parent) { return new CModuleAlerts(AlertActions(), parent); });
    pages.setUserPageCreator([this](const UserPageSlot& slot, QWidget* parent) {
        auto* page = new CModuleCustom([this] { return m_pServices->Sources(); },
                                       [this](const QString& action) { RunElementAction(action); }, parent);
        page->LoadPage(slot.file);
        return page;
    });
    return pages;
}

LogPositionReader CFendixApp::LogReader() {
    return [this](QIODevice& file, TrackVertices& track) {
        std::vector<TrackPoint> points;
        if (!ReadFromFile(&file, points, m_pDoc->Fix(), m_clock, false)) return false;
        for (const TrackPoint& p : points)
            track.push_back({p.m_dLong, p.m_dLat});
        return true;
    };
}

void CFendixApp::OpenShapes() {
    if (m_pShapes || m_shapesOpening.valid()) return;
    m_shapesOpening = std::async(std::launch::async, [root = m_root] {
        return LoadShapeLayers(root.hostPath(QString::fromLatin1(kShapeProfilePath)),
                               [&root](const QString& path) { return root.hostPath(path); });
    });
}

std::shared_ptr<ShapeLayers> CFendixApp::Shapes() {
    if (m_pShapes || !m_shapesOpening.valid() ||
        m_shapesOpening.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return m_pShapes;
    m_pShapes = m_shapesOpening.get();
    // Asked while a map page draws: the notice comes after.
    if (!m_pShapes->m_messages.isEmpty())
        QTimer::singleShot(0, this, [this] {
            ShowNotice(QStringLiteral("Shape-Ebenen übersprungen:\n") + m_pShapes->m_messages.join('\n'));
        });
    return m_pShapes;
}

void CFendixApp::StorePosition() {
    const GpsFix& fix = m_pDoc->Fix();
    if (!fix.hasFix()) return;
    m_pWaypoints->Append(
        {fix.m_dPosLong, fix.m_dPosLat, TarvikPosNameWithAltitude(LocalNow(), fix.m_fAltitude)});
}

void CFendixApp::SendSimulationTarget() {
    double lon = 0, lat = 0;
    m_pTarget->GetTarget(lon, lat);
    const QByteArray text = VantrelSimulationText(lon, lat, VantrelSimulationOn());
    devLog("Set Vantrel Target: %s", text.constData());
    m_pSource->controller().writeToPort(text);
}

void CFendixApp::RunElementAction(const QString& action) {
    // A bare page name selects that page; everything else is a hotkey action ("<Screenshot>", "<page>").
    if (m_pFrame->PageNames().contains(action))
        m_pFrame->SelectPageByName(action);
    else
        m_pActions->Perform(action);
}

void CFendixApp::HandToNavigation(double lon, double lat, const QString& name) {
    const HandOverResult result = m_pBridge->NavigateTo(lon, lat, name);
    if (result.bOk) return;
    auto* box = new QMessageBox(QMessageBox::Critical, QStringLiteral("Last Error"), result.error,
                                QMessageBox::Ok, m_pFrame.get());
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

QDateTime CFendixApp::LocalNow() const {
    // Local seconds, read as UTC so that no second time zone shift applies.
    return QDateTime::fromSecsSinceEpoch(m_clock.localNow(), Qt::UTC);
}

std::optional<double> CFendixApp::TargetDistance() const {
    double lon = 0, lat = 0;
    if (!m_pTarget->GetTarget(lon, lat)) return std::nullopt;
    const GpsFix& fix = m_pDoc->Fix();
    return GeoDistance(fix.m_dPosLong, fix.m_dPosLat, lon, lat);
}

CModuleAlerts::Actions CFendixApp::AlertActions() {
    return {[this] { m_pSounds->loadAlertSounds(); }, [this] { m_pSounds->loadSpeedSounds(); },
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

void CFendixApp::StartNavigationProgram() {
    m_pActions->SetNavigationHandler([this](const QString& action) {
        if (!m_pServices->PerformAction(action)) m_pBridge->PerformAction(action);
    });
    CRegistryKey key;
    QString error;
    if (readSetting(key, ShellSettings::kAutoStartMN) && !m_pBridge->BringToFront(error))
        devLog("!!!! Start navigation program: %s", qUtf8Printable(error));

    CNavOverlay::Services overlay;
    overlay.navWindowFrame = [this] {
        m_pBridge->FindNavigationWindow();
        return m_pBridge->WindowFrame();
    };
    overlay.expand = [this](const QString& text) { return ExpandTemplate(text, m_pServices->Sources()); };
    overlay.infoFile = [this] {
        const QString folder = m_pBridge->ProgramPath(true);
        return std::make_pair(NavInfoFile::find(m_root, folder), NavInfoFile::listSection(m_pBridge->Kind()));
    };
    overlay.onAction = [this](const QString& action) { RunElementAction(action); };
    m_pOverlay = std::make_unique<CNavOverlay>(overlay);
    LoadRouteAdvance();
    connect(m_pFrame.get(), &CMainFrame::pagesRedrawn, this, &CFendixApp::AdvanceRoute);

    const QString program = readSetting(key, ShellSettings::kAutoStart);
    if (program.isEmpty() || !readSetting(key, ShellSettings::kPostNavi)) return;
    PostNaviStart::Services services;
    services.start = [this](const QString& path) {
        QProcess::startDetached(m_root.hostPath(path), {}); // a failed start is not reported
    };
    services.sendPoiWarnerStart = [] { return NavigationBridge::SendPoiWarnerStart(); };
    services.bringNavigatorToFront = [this] {
        QMetaObject::invokeMethod(this, [this] {
            QString ignored;
            m_pBridge->BringToFront(ignored);
        });
    };
    m_pPostNavi = std::make_unique<PostNaviStart>(services);
    m_postNaviTimer.setInterval(int(PostNaviStart::kPollPeriod.count()));
    connect(&m_postNaviTimer, &QTimer::timeout, this, [this, program] {
        if (m_pPostNavi->Tick(m_pBridge->IsRunning(), program)) m_postNaviTimer.stop();
    });
    m_postNaviTimer.start();
}

void CFendixApp::LoadRouteAdvance() {
    CRegistryKey key;
    m_pRoute.reset();
    if (!readSetting(key, NavBridgeSettings::kNextWaypoint)) return;
    m_nRouteRadius = readSetting(key, NavBridgeSettings::kNextWaypointRadius);
    m_pRoute = std::make_unique<RouteAdvance>(m_root, m_clock);
    if (!m_pRoute->Load(m_pBridge->ProgramPath(true))) m_pRoute.reset();
}

void CFendixApp::AdvanceRoute() {
    const GpsFix& fix = m_pDoc->Fix();
    if (!m_pRoute || !fix.hasFix()) return;
    int id = 0;
    if (const auto next = m_pRoute->Tick({fix.m_dPosLat, fix.m_dPosLong}, m_nRouteRadius, id))
        m_pBridge->NavigateTo(next->m_dPosLong, next->m_dPosLat, QStringLiteral("Routenpunkt %1").arg(id));
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
    m_pServices->Stop();
    m_pDoc->StopSource();
    m_pDoc->SetAlertHooks(nullptr);
    m_pSounds->shutdown();
    m_pDoc->SaveAndClose();
    m_idleInhibitor.hold(false);
    m_pPois->stop();
    m_postNaviTimer.stop();
    if (m_pPostNavi) m_pPostNavi->Stop();
    m_pOverlay.reset();
    m_pBridge->Stop();
    m_purgeStop.set();
    if (m_purgeThread.joinable()) m_purgeThread.join();
    QCoreApplication::quit();
}
