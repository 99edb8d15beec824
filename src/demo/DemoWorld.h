#pragma once

#include "nav/GeoPosition.h"

#include <QString>
#include <vector>

// The invented country around the demo drive that the demo's maps show: the two towns, a village,
// a lake and a pond, a river, a railway, forests and roads, with their names. The drive's own road
// comes from the route.
struct DemoFeature {
    enum class Kind { Town, Forest, Water, River, Railway, Road, Street };
    Kind m_kind;
    std::vector<GeoPosition> m_points; // a closed outline for towns, forests and water
};

struct DemoLabel {
    enum class Kind { Town, Village, Water, Forest, Street, RoadNumber };
    Kind m_kind;
    GeoPosition m_at;
    QString m_strText;
};

struct DemoWorld {
    std::vector<DemoFeature> m_features; // in drawing order
    std::vector<DemoLabel> m_labels;
    // The drive's road in pieces, each open or in the tunnel.
    struct Piece {
        bool m_bTunnel;
        std::vector<GeoPosition> m_points;
    };
    std::vector<Piece> m_route;
};

DemoWorld demoWorld();
