#pragma once

#include "nav/track/TkFile.h"

#include <functional>
#include <memory>

class CGoToTarget;
class CMapView;
class CMeasurement;
class CWaypointList;
class PoiLoader;
struct ShapeLayers;

// What the overlays of a map page show; each is left out while it is not given.
struct MapOverlaySources {
    std::function<std::shared_ptr<ShapeLayers>()> shapes; // the layers once opened, nothing meanwhile
    std::function<const TrackVertices&()> track;          // the track page's track
    const PoiLoader* pPois = nullptr;
    const CWaypointList* pWaypoints = nullptr;
    const CGoToTarget* pTarget = nullptr;
    CMeasurement* pMeasurement = nullptr;
};

// Adds the overlays to a map page, bottom to top: the shapefile layers, the current run's way, the
// track, the POIs, the waypoints with the GoTo target, the measurement.
void AddMapOverlays(CMapView& view, const MapOverlaySources& sources);
