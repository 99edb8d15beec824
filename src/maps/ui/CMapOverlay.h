#pragma once

#include <QPointF>

class MapViewport;
class QPainter;

// Something drawn over the map (a track, waypoints, POIs, a measurement): the view paints its
// overlays in the order they were added, after the map image and before the position, the scale
// and the texts. Positions reach the screen through the viewport (MapViewport::ToScreen).
class CMapOverlay {
public:
    virtual ~CMapOverlay() = default;
    virtual void Paint(QPainter& painter, const MapViewport& viewport) = 0;
    // A tap on the map at `position` (lon, lat); true when the overlay took it (a measuring point),
    // so that nothing else acts on it.
    virtual bool Tapped(QPointF /*position*/) { return false; }
};
