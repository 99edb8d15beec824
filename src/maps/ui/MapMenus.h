#pragma once

#include <QPointF>

class CMapView;
class QMenu;

// The map page's menus; the caller shows them and lets them delete themselves.
namespace MapMenus {

// "Erweiterte Menübar": the map, the catalogue and every display setting, each written at once.
QMenu* PageMenu(CMapView& view);
// Long press or right click at `at`: the calibration points of the current map, whose pixel side is
// the map pixel under `at`.
QMenu* CalibrationMenu(CMapView& view, QPointF at);

} // namespace MapMenus
