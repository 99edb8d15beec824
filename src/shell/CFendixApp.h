#pragma once

#include "gps/sources/StopEvent.h"
#include "gps/ui/CModuleAlerts.h"
#include "nav/track/TrackFiles.h"
#include "platform/DeviceClock.h"
#include "platform/DeviceRoot.h"
#include "platform/session/IdleInhibitor.h"

#include "integrations/NavigationTarget.h"

#include <QDateTime>
#include <QObject>
#include <QTimer>
#include <future>
#include <memory>
#include <optional>
#include <thread>

class Backlight;
class CAutoActions;
class CFendixDoc;
class CHotkeyActions;
class CHotkeyInput;
class EvdevKeys;
class FlashNotice;
class CGoToTarget;
class CMeasurement;
class CWaypointList;
class CMainFrame;
class DocumentSource;
class IntegrationServices;
class MemoryPressure;
class CNavOverlay;
class NavigationBridge;
class PostNaviStart;
class RouteAdvance;
class PageFactory;
class PoiLoader;
class QtNoiseMeter;
class QtSoundOutput;
class SoundController;
class TerminationSignals;
struct ShapeLayers;

// The program: starts the parts in their order (settings, document, frame, sounds, the page of
// "CurrentView", the POIs, the GPS source, the old-log purge, the program started with this one) and
// ends them on the frame's close (source stopped, POI loading stopped, tour and last position saved,
// log closed).
class CFendixApp : public QObject {
    Q_OBJECT
public:
    explicit CFendixApp(const DeviceRoot& root);
    ~CFendixApp() override;

    // Builds and shows everything, on `startPage` when given, else on the page of "CurrentView"; false
    // when the window cannot be made.
    bool InitInstance(bool bFullScreen, const QString& startPage = {});
    CMainFrame& Frame() { return *m_pFrame; }
    CFendixDoc& Document() { return *m_pDoc; }
    CGoToTarget& Target() { return *m_pTarget; }
    // The hotkey actions by name, for the buttons of user pages and the navigation program bridge.
    CHotkeyActions& Actions() { return *m_pActions; }

private:
    PageFactory MakePages();
    CModuleAlerts::Actions AlertActions();
    void ShowLogInDiagrams(const QString& log);
    void StartAutoStartProgram();
    // The navigation program with Tarvik ("AutoStartMN"), the program waiting for it ("PostNavi"),
    // the information box over it.
    void StartNavigationProgram();
    // "MNMNextWP": the route read again with its settings; at each fix the next point when one is reached.
    void LoadRouteAdvance();
    void AdvanceRoute();
    // The buttons, their actions and the automatic announcement and TMC search (after the frame).
    void StartHotkeys();
    // "Speicher aktuelle Pos": the GPS position as a waypoint.
    void StorePosition();
    // After each target change: the splitter driver's simulation text to the open port.
    void SendSimulationTarget();
    std::optional<double> TargetDistance() const;
    // A recorded log's positions, for the track page and the map's track.
    LogPositionReader LogReader();
    // Starts opening the shapefile layers of "\Tarvik.gsh" on a thread of their own, once: 50 MB
    // take a second.
    void OpenShapes();
    // The layers once open, nothing before; skipped layers are told in a notice.
    std::shared_ptr<ShapeLayers> Shapes();
    // What a tapped element of a user page or of the overlay over the navigation program runs.
    void RunElementAction(const QString& action);
    // A destination (degrees, longitude first) to the navigation program; its error in a box.
    void HandToNavigation(double lon, double lat, const QString& name);
    QDateTime LocalNow() const;
    void ApplyLowPriority(bool bActive);
    void Shutdown();
    void ShowNotice(const QString& text); // a message that never blocks the sentences behind it
    // One notice when settings cannot be saved: at start for a read-only file, else at the first failed
    // write.
    void WatchSettingsWrites();

    DeviceRoot m_root;
    SystemDeviceClock m_clock;
    std::unique_ptr<CFendixDoc> m_pDoc;
    std::unique_ptr<QtSoundOutput> m_pSoundOutput;
    std::unique_ptr<QtNoiseMeter> m_pNoiseMeter;
    std::unique_ptr<SoundController> m_pSounds;
    std::unique_ptr<DocumentSource> m_pSource;
    std::unique_ptr<PoiLoader> m_pPois;               // before the frame: the POI pages refer to it
    std::unique_ptr<CGoToTarget> m_pTarget;           // likewise the GoTo, speed and track pages
    std::unique_ptr<CWaypointList> m_pWaypoints;      // the GoTo page and "Speicher aktuelle Pos"
    std::unique_ptr<IntegrationServices> m_pServices; // TMC and live position, before their pages
    std::unique_ptr<CMeasurement> m_pMeasurement;     // made on the map pages, inserted by the track page
    TrackVertices m_mapTrack;                         // the track page's track, drawn on the map pages
    std::shared_ptr<ShapeLayers> m_pShapes;           // opened with the first map page
    std::future<std::shared_ptr<ShapeLayers>> m_shapesOpening; // waited for when the program ends
    std::unique_ptr<CMainFrame> m_pFrame;
    std::unique_ptr<Backlight> m_pBacklight;
    std::unique_ptr<CHotkeyActions> m_pActions;
    EvdevKeys* m_pDeviceKeys = nullptr;
    CHotkeyInput* m_pHotkeys = nullptr;
    CAutoActions* m_pAutoActions = nullptr;
    FlashNotice* m_pNotice = nullptr;
    TerminationSignals* m_pSignals = nullptr;
    MemoryPressure* m_pPressure = nullptr;
    IdleInhibitor m_idleInhibitor;
    StopEvent m_purgeStop;
    std::thread m_purgeThread;
    NavigationTarget m_navTarget; // the navigation program's destination, for the templates
    std::unique_ptr<NavigationBridge> m_pBridge;
    std::unique_ptr<CNavOverlay> m_pOverlay;
    std::unique_ptr<PostNaviStart> m_pPostNavi;
    std::unique_ptr<RouteAdvance> m_pRoute; // only while "MNMNextWP" is on
    int m_nRouteRadius = 0;                 // metres
    QTimer m_postNaviTimer;                 // timer 49
    bool m_bShutDown = false;
    bool m_bLowPriority = false;
};
