#pragma once

#include "integrations/navbridge/DestinationHandOver.h"
#include "integrations/navbridge/TomTomSdk.h"
#include "nav/GeoPosition.h"
#include "platform/DeviceRoot.h"

#include <QRect>
#include <cstdint>
#include <optional>

struct NavigationTarget;

// The navigation program beside Tarvik: its kind, its path and its window, found once and kept;
// starting it or bringing it to the front; handing it destinations; zooming its map. The hand-over
// runs on the UI thread; only the TomTom clean-up has a worker of its own.
class NavigationBridge {
public:
    // `display` as in $DISPLAY (empty: $DISPLAY); `target` is filled with each destination handed over.
    NavigationBridge(const DeviceRoot& root, NavigationTarget& target, QString display = {});

    int Kind() const { return m_nKind; }
    // The full path (system path, "\" separators) or its folder; recognises the kind from the path
    // while it is still 0.
    QString ProgramPath(bool bFolderOnly);
    // Searches the top-level windows; sets the kind when one is the navigation program's.
    std::optional<uint32_t> FindNavigationWindow();
    bool IsRunning() { return FindNavigationWindow().has_value(); }
    // The navigation program's window on the screen, for the overlay.
    std::optional<QRect> WindowFrame();
    // Brings the window to the front, or starts the program when no window is found. False with
    // the system's error text in `error` when the start failed.
    bool BringToFront(QString& error);
    // Hands a destination over (degrees, longitude first); on success the navigation target holds it.
    HandOverResult NavigateTo(double lon, double lat, const QString& name);
    // The centre of the navigation program's map: Navit's over D-Bus when it answers, else the one of
    // the position file; nothing while neither tells one.
    std::optional<GeoPosition> MapCentre();
    // The place last clicked in the navigation program (the position file's [LastClick]).
    std::optional<GeoPosition> LastClick() const;
    // Zooms the map in or out: Navit through its zoom call, the others through window commands.
    bool Zoom(bool bIn);
    // A hotkey action on the navigation program ("<MN Zoom in>", "<MN Zoom out>", "<MN in Vordergrund>");
    // false for the others, which no program here takes.
    bool PerformAction(const QString& action);
    // The POI warner started after the navigation program ("POI-Warner") gets its start command;
    // false when its window is not there. Safe on any thread.
    static bool SendPoiWarnerStart(const QString& display = {});

    // Ends the TomTom clean-up (the application's stop).
    void Stop() { m_cleanup.stop(); }

private:
    int MajorVersionOfProcess(uint32_t pid);
    int MajorVersionOfProgram();

    DeviceRoot m_root;
    NavigationTarget& m_target;
    QString m_strDisplay;
    int m_nKind = 0;
    QString m_strPath;
    bool m_bPathKnown = false;
    std::optional<uint32_t> m_window;
    uint32_t m_nVersionPid = 0; // the process whose major version m_nVersionMajor holds
    int m_nVersionMajor = 0;
    SdkFileCleanup m_cleanup;
};
