#include "maps/ui/overlays/MapOverlays.h"

#include "gps/CFendixDoc.h"
#include "maps/ui/CMapView.h"
#include "maps/ui/overlays/CMeasureOverlay.h"
#include "maps/ui/overlays/CPoiOverlay.h"
#include "maps/ui/overlays/CRunTrackOverlay.h"
#include "maps/ui/overlays/CShapeOverlay.h"
#include "maps/ui/overlays/CTrackOverlay.h"
#include "maps/ui/overlays/CWaypointOverlay.h"
#include "nav/goto/GoToTarget.h"
#include "nav/poi/PoiLoader.h"
#include "nav/track/Measurement.h"
#include "nav/waypoints/WaypointList.h"

void AddMapOverlays(CMapView& view, const MapOverlaySources& sources) {
    if (sources.shapes) view.AddOverlay(std::make_unique<CShapeOverlay>(sources.shapes));
    view.AddOverlay(std::make_unique<CRunTrackOverlay>(view.Document(), view.DisplaySettings()));
    if (sources.track) view.AddOverlay(std::make_unique<CTrackOverlay>(sources.track));
    if (sources.pPois) view.AddOverlay(std::make_unique<CPoiOverlay>(*sources.pPois, view.DisplaySettings()));
    if (sources.pWaypoints && sources.pTarget)
        view.AddOverlay(
            std::make_unique<CWaypointOverlay>(*sources.pWaypoints, *sources.pTarget, view.Document().Fix()));
    if (sources.pMeasurement)
        view.AddOverlay(std::make_unique<CMeasureOverlay>(*sources.pMeasurement, view.DisplaySettings()));
    // Changes made on other pages, in the menu or by a load show at once; the measurement and the
    // target are drawn live, the rest is drawn anew.
    const auto repaint = [&view] { view.update(); };
    const auto redraw = [&view] { view.OverlaysChanged(); };
    if (sources.pMeasurement) QObject::connect(sources.pMeasurement, &CMeasurement::changed, &view, repaint);
    if (sources.pTarget) QObject::connect(sources.pTarget, &CGoToTarget::changed, &view, repaint);
    if (sources.pWaypoints) QObject::connect(sources.pWaypoints, &CWaypointList::changed, &view, redraw);
    if (sources.pPois) {
        QObject::connect(sources.pPois, &PoiLoader::started, &view, redraw);
        QObject::connect(sources.pPois, &PoiLoader::loaded, &view, redraw);
    }
}
