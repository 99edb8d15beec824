#pragma once

#include "maps/ui/CMapOverlay.h"
#include "nav/waypoints/WaypointFile.h"

#include <QColor>

class CGoToTarget;
class CWaypointList;
class ScreenProjection;
struct GpsFix;

// The GoTo page's waypoints as small flags with their names, and the target as a ring with a line
// to it from the position (while there is a fix). The target and its line are drawn live: the line
// follows the position.
class CWaypointOverlay : public CMapOverlay {
public:
    CWaypointOverlay(const CWaypointList& waypoints, const CGoToTarget& target, const GpsFix& fix);

    Drawing Prepare(const MapViewport& viewport) override;
    void PaintLive(QPainter& painter, const MapViewport& viewport) override;
    QString Title() const override { return QStringLiteral("Wegpunkte und GoTo Ziel"); }
    const char* SettingName() const override { return "ShowWaypoints"; }

    static constexpr QRgb kWaypointColour = 0xffc00000; // flags and names
    static constexpr QRgb kTargetColour = 0xffd000d0;   // the target and the line to it

private:
    static void DrawFlags(QPainter& painter, const ScreenProjection& projection, const Waypoints& waypoints);

    const CWaypointList& m_waypoints;
    const CGoToTarget& m_target;
    const GpsFix& m_fix;
};
