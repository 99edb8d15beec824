#include "maps/ui/MapDisplaySettings.h"

#include "maps/MapSettings.h"
#include "settings/CRegistryKey.h"

MapDisplaySettings MapDisplaySettings::Read(int instance, QSize screen) {
    namespace S = MapSettings;
    CRegistryKey key(S::KeyPath(instance));
    MapDisplaySettings settings;
    settings.m_bTurnMap = readSetting(key, S::kTurnMap) != 0;
    settings.m_bShowPerspective = readSetting(key, S::kShowPerspective) != 0;
    settings.m_nPerspective = readStoredSetting(key, S::kPerspective)
                                  .value_or(S::PerspectiveDefault(screen.width(), screen.height()));
    settings.m_bMapBar = readSetting(key, S::kMapBar) != 0;
    settings.m_nScaleType = readSetting(key, S::kScaleType);
    settings.m_bShowScrollbar = readSetting(key, S::kShowScrollbarInMap) != 0;
    settings.m_colMeasurement = Colour(readSetting(key, S::kColMeasurement));
    settings.m_colGraph = Colour(readSetting(key, S::kColGraph));
    settings.m_bColoredGraph = readSetting(key, S::kColoredGraph) != 0;
    return settings;
}

QColor toQColor(Colour colour) {
    return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

Colour fromQColor(const QColor& colour) {
    return makeColour(colour.red(), colour.green(), colour.blue());
}
