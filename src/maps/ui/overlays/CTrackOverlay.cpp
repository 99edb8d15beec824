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

void CTrackOverlay::Paint(QPainter& painter, const MapViewport& viewport) {
    const TrackVertices& track = m_track();
    if (track.empty()) return;
    QPolygonF geo;
    geo.reserve(qsizetype(track.size()));
    for (const TrackVertex& vertex : track)
        geo.append(QPointF(vertex.m_dLon, vertex.m_dLat));
    const ScreenProjection projection(viewport);
    PolylinePainting::DrawLine(painter, projection, geo, m_colour, 3.0);
    if (m_bNumbers) PolylinePainting::DrawNumbers(painter, projection, geo, m_colour.darker(150));
}
