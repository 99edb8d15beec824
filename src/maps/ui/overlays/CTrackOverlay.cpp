#include "maps/ui/overlays/CTrackOverlay.h"

#include "maps/ui/MapDisplaySettings.h"
#include "maps/ui/overlays/PolylinePainting.h"
#include "maps/ui/overlays/ScreenProjection.h"
#include "nav/track/TrackSettings.h"
#include "settings/CRegistryKey.h"

#include <QPainter>

CTrackOverlay::CTrackOverlay(std::function<const TrackVertices&()> track) : m_track(std::move(track)) {
    ReadSettings();
}

void CTrackOverlay::ReadSettings() {
    CRegistryKey key;
    m_colour = toQColor(Colour(readSetting(key, TrackSettings::kTrackColor)));
    m_bNumbers = readSetting(key, TrackSettings::kTrackNumbers);
}

CMapOverlay::Drawing CTrackOverlay::Prepare(const MapViewport& viewport) {
    m_drawn = m_track();
    if (m_drawn.empty()) return {};
    QPolygonF geo;
    geo.reserve(qsizetype(m_drawn.size()));
    for (const TrackVertex& vertex : m_drawn)
        geo.append(QPointF(vertex.m_dLon, vertex.m_dLat));
    return [projection = ScreenProjection(viewport), geo, colour = m_colour,
            numbers = m_bNumbers](QPainter& painter) {
        PolylinePainting::DrawLine(painter, projection, geo, colour, 3.0);
        if (numbers) PolylinePainting::DrawNumbers(painter, projection, geo, colour.darker(150));
    };
}
