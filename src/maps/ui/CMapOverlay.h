#pragma once

#include <QPointF>
#include <QString>
#include <functional>

class MapViewport;
class QMenu;
class QPainter;

// Something drawn over the map (a track, waypoints, POIs, a measurement): the view paints its
// overlays in the order they were added, after the map image and before the position, the scale
// and the texts, and only on the geographic plane. What lies on the ground is drawn into the view's
// overlay image (COverlayImage) on a worker thread and moves with the map, so a frame only places that
// image; what follows the position is drawn live every frame. Positions reach the screen through the
// viewport (MapViewport::GeoToScreen). Each overlay can be switched off in the map menu's
// "Einblendungen"; the view keeps that choice in its settings key under SettingName().
class CMapOverlay {
public:
    // The ground part's drawing, run on a worker thread: it holds copies of all it draws.
    using Drawing = std::function<void(QPainter&)>;

    virtual ~CMapOverlay() = default;
    // Takes, on the window's thread, what lies on the ground in `viewport`; nothing when it draws
    // nothing there.
    virtual Drawing Prepare(const MapViewport& viewport) = 0;
    // True when the ground would be drawn otherwise than at the last Prepare (new data). Asked
    // every frame, so cheap.
    virtual bool Changed() { return false; }
    // What follows the position or stays on the screen, drawn every frame over the overlay image.
    virtual void PaintLive(QPainter& /*painter*/, const MapViewport& /*viewport*/) {}
    // The entry of "Einblendungen".
    virtual QString Title() const = 0;
    // The view's DWORD value holding whether it is shown (default 1).
    virtual const char* SettingName() const = 0;
    // A tap on the map at `position` (lon, lat); true when the overlay took it (a measuring point),
    // so that nothing else acts on it.
    virtual bool Tapped(QPointF /*position*/) { return false; }
    // Reads the settings it draws with: when added and each time the page is shown.
    virtual void ReadSettings() {}
    // Commands of its own in the map menu, after "Einblendungen".
    virtual void AddCommands(QMenu& /*menu*/) {}
};
