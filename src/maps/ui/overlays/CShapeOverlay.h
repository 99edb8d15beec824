#pragma once

#include "maps/ui/CMapOverlay.h"

#include <functional>
#include <memory>

struct ShapeLayers;

// The shapefile layers of "\Tarvik.gsh": each within its scale range, only the shapes in view, lines
// and outlines in the layer's colour and width, polygons filled when the layer has a fill, points as
// small squares, and the label field's text beside the shapes while few are in view.
class CShapeOverlay : public CMapOverlay {
public:
    static constexpr int kMaxLabelled = 60;   // shapes of a layer in view that still get labels
    static constexpr size_t kMaxSmooth = 300; // more shapes of a layer in view: hairlines

    // The layers are shared by the map pages (one opened copy of each file); `layers` gives them once
    // they are open, nothing while they open.
    explicit CShapeOverlay(std::function<std::shared_ptr<ShapeLayers>()> layers);

    Drawing Prepare(const MapViewport& viewport) override;
    bool Changed() override { return m_layers() != m_pLayers; } // opened meanwhile
    QString Title() const override { return QStringLiteral("Shape-Ebenen"); }
    const char* SettingName() const override { return "ShowShapes"; }

private:
    // On the overlay image's worker thread, the only one reading the layers.
    static void Draw(QPainter& painter, const MapViewport& viewport, ShapeLayers& layers);

    std::function<std::shared_ptr<ShapeLayers>()> m_layers;
    std::shared_ptr<ShapeLayers> m_pLayers; // as at the last Prepare
};
