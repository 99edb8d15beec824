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

    void Paint(QPainter& painter, const MapViewport& viewport) override;
    QString Title() const override { return QStringLiteral("Track"); }
    const char* SettingName() const override { return "ShowTrack"; }
    void ReadSettings() override;

private:
    std::function<const TrackVertices&()> m_track;
    QColor m_colour;
    bool m_bNumbers = true;
};
