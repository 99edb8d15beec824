#pragma once

#include "maps/ui/CMapOverlay.h"
#include "nav/track/TkFile.h"

#include <QColor>
#include <functional>

// The track page's track in "TrackColor", with its point numbers while "TrackNumbers" is set.
class CTrackOverlay : public CMapOverlay {
public:
    // `track` gives the track as the track page holds it now.
    explicit CTrackOverlay(std::function<const TrackVertices&()> track);

    Drawing Prepare(const MapViewport& viewport) override;
    bool Changed() override { return m_track() != m_drawn; }
    QString Title() const override { return QStringLiteral("Track"); }
    const char* SettingName() const override { return "ShowTrack"; }
    void ReadSettings() override;

private:
    std::function<const TrackVertices&()> m_track;
    TrackVertices m_drawn; // as it was at the last Prepare
    QColor m_colour;
    bool m_bNumbers = true;
};
