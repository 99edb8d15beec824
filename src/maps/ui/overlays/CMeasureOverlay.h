#pragma once

#include "maps/ui/CMapOverlay.h"

class CMeasurement;
struct MapDisplaySettings;

// The distance measurement in "ColMeasurement": while "Messen" is on, each tap on the map adds a
// point; the points are joined, the ring back to the first is dashed, and a box at the top left
// gives the length along the points in km and, from three points on, the area they enclose. All of
// it is drawn live: a few points, and each tap shows at once.
class CMeasureOverlay : public CMapOverlay {
public:
    CMeasureOverlay(CMeasurement& measurement, const MapDisplaySettings& settings);

    Drawing Prepare(const MapViewport& /*viewport*/) override { return {}; }
    void PaintLive(QPainter& painter, const MapViewport& viewport) override;
    QString Title() const override { return QStringLiteral("Messung"); }
    const char* SettingName() const override { return "ShowMeasurement"; }
    bool Tapped(QPointF position) override;
    void AddCommands(QMenu& menu) override;

    // "1.234 km" and, from three points on, the area: the box's text.
    static QString Summary(const CMeasurement& measurement);

private:
    CMeasurement& m_measurement;
    const MapDisplaySettings& m_settings;
};
