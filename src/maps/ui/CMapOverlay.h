#pragma once

#include <QPointF>
#include <QString>

class MapViewport;
class QMenu;
class QPainter;

// Something drawn over the map (a track, waypoints, POIs, a measurement): the view paints its
// overlays in the order they were added, after the map image and before the position, the scale
// and the texts, and only on the geographic plane. Positions reach the screen through the viewport
// (MapViewport::GeoToScreen). Each overlay can be switched off in the map menu's "Einblendungen";
// the view keeps that choice in its settings key under SettingName().
class CMapOverlay {
public:
    virtual ~CMapOverlay() = default;
    virtual void Paint(QPainter& painter, const MapViewport& viewport) = 0;
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
