#pragma once

#include "maps/ui/CMapOverlay.h"

#include <QColor>

#include <QHash>
#include <QString>
#include <cstdint>

class PoiLoader;
struct PoiEntry;
struct PoiFile;
struct MapDisplaySettings;

// The points of the enabled POI files with their files' icons (a dot for a file without one). Of the
// points that would crowd each other (one a cell of twice the icon's edge) only the first is drawn, so a
// crowded map stays readable and fast; names are written while few points are on the overlay image, in a
// small font with "Small Font". With "HidePOIByDiag" the points are hidden while the map is turned to the
// course or tilted, when the icons would stand askew over a moving map. Nothing is drawn while the files
// load.
class CPoiOverlay : public CMapOverlay {
public:
    static constexpr int kMaxNamed = 30; // names are written up to this many points drawn
    static constexpr int kDotEdge = 8;   // pixels, the mark of a file without icon
    static constexpr int kMinCell = 24;  // pixels: at most one point in a square of this edge
    static constexpr QRgb kDotColour = 0xff0060c0;

    CPoiOverlay(const PoiLoader& pois, const MapDisplaySettings& settings);

    // Chooses the points and reads their names here: the loader may start over while the image is drawn.
    Drawing Prepare(const MapViewport& viewport) override;
    QString Title() const override { return QStringLiteral("POIs"); }
    const char* SettingName() const override { return "ShowPOI"; }
    void ReadSettings() override;

private:
    // The point's name without quotes, read once.
    QString Name(const PoiFile& file, const PoiEntry& entry);

    const PoiLoader& m_pois;
    const MapDisplaySettings& m_settings;
    bool m_bHideByDiag = false;
    bool m_bSmallFont = false;
    QHash<QString, QString> m_names; // by file path and name offset; emptied while files load
};
