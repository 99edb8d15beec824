#pragma once

#include "maps/ui/CMapOverlay.h"

#include <QColor>

#include <QElapsedTimer>
#include <QPolygonF>
#include <QString>
#include <vector>

class CFendixDoc;
struct MapDisplaySettings;

// The way of the current run, read back from the run's log file (ReadFromFile) and read again as
// the file grows, at most every few seconds. Drawn in "ColGraph", or with "ColoredGraph" each piece
// in the colour of its speed: blue standing, through green and yellow, red from 130 km/h.
class CRunTrackOverlay : public CMapOverlay {
public:
    static constexpr int kRereadMs = 3000;

    CRunTrackOverlay(const CFendixDoc& doc, const MapDisplaySettings& settings);

    Drawing Prepare(const MapViewport& viewport) override;
    bool Changed() override { return ReadLog(); }
    QString Title() const override { return QStringLiteral("Aktuelle Fahrt"); }
    const char* SettingName() const override { return "ShowRunTrack"; }

    // The colour of `kmh` in the coloured way.
    static QColor SpeedColour(double kmh);

private:
    // True when the way changed.
    bool ReadLog();

    const CFendixDoc& m_doc;
    const MapDisplaySettings& m_settings;
    QString m_strPath;
    qint64 m_nReadSize = -1;
    QElapsedTimer m_sinceRead;
    QPolygonF m_geo;
    std::vector<float> m_speeds; // km/h from each position to the next
};
