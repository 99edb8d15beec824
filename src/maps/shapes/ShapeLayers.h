#pragma once

#include "maps/shapes/ShapeLayer.h"
#include "maps/shapes/ShapeProfile.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

// The shapefile layers of a profile, opened, in drawing order; and a line for each layer that was
// skipped ("Straßen: roads.shp: the .shx or .dbf file beside it is missing").
struct ShapeLayers {
    struct Layer {
        ShapeLayerStyle m_style;
        std::unique_ptr<CShapeLayer> m_pShapes;
    };
    std::vector<Layer> m_layers;
    QStringList m_messages;
};

// Opens the layers of the profile at the host path; none without a profile. `resolve` turns a device
// path into a host path.
std::shared_ptr<ShapeLayers> LoadShapeLayers(const QString& profilePath,
                                             const std::function<QString(const QString&)>& resolve);
