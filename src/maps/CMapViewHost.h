#pragma once

#include "maps/MapImageLoader.h"

#include <QImage>
#include <QSize>
#include <QString>
#include <optional>

class MapCalibration;

// What the map view shows: the position at the centre of its client rectangle and the ground scale
// (the distance between its top corners in metres over its width in pixels); no scale when the
// client rectangle is empty.
struct MapViewSpot {
    double dLong = 0.0;
    double dLat = 0.0;
    std::optional<double> metresPerPixel;
};

// The map view as the catalogue sees it. The view draws; the catalogue decides which map and asks
// the view to follow. Each call has a harmless default so that a view without a screen (the
// command-line tool, tests) overrides only what it needs.
class CMapViewHost {
public:
    virtual ~CMapViewHost() = default;

    virtual bool IsDrawing() const { return false; }
    virtual MapViewSpot ShownSpot() const { return {}; }
    virtual QSize ScreenSize() const { return {240, 320}; }

    virtual void RecomputeView() {}
    virtual void ResetViewMatrix() {}
    // Adds to the entry in the first row and third column of the view's position matrix.
    virtual void NudgeViewPosition(double /*delta*/) {}
    virtual void DisplayMap(MapCalibration* /*map*/) {}
    virtual void Repaint() {}
    virtual void RestartTimer() {}
    virtual void SetStatusText(const QString& /*text*/) {}
    virtual void SetTitle(const QString& /*title*/) {}
    virtual void ShowMessage(const QString& /*title*/, const QString& /*text*/) {}
    // The application's memory release, asked for before a failed image load is tried again.
    virtual void FreeMemory() {}
    // Decodes a map image (a null image when it cannot be read). By default at once; a view with a
    // screen decodes on a worker thread so that its window never freezes: it answers nothing while
    // the image is decoding and, once it is there, repeats the LoadCurrentMap that asked for it.
    virtual std::optional<QImage> DecodeImage(const QString& path) { return MyLoadBitmap(path); }
};
