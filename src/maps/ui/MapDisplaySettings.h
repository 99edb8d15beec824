#pragma once

#include "settings/ValueText.h"

#include <QColor>
#include <QSize>
#include <cstdint>

// How one map view draws: read from its settings key when the view starts, each value written at
// once when the user changes it in the page's menu.
struct MapDisplaySettings {
    bool m_bTurnMap = false;
    bool m_bShowPerspective = false;
    int32_t m_nPerspective = 300; // pixels from the position up to the horizon
    bool m_bMapBar = true;
    int32_t m_nScaleType = 0;
    bool m_bShowScrollbar = false;
    Colour m_colMeasurement = makeColour(0, 0, 192);
    Colour m_colGraph = makeColour(128, 0, 0);
    bool m_bColoredGraph = false;

    // The settings of view `instance`; `screen` decides the perspective's default.
    static MapDisplaySettings Read(int instance, QSize screen);
};

QColor toQColor(Colour colour);
Colour fromQColor(const QColor& colour);
