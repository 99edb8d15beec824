#pragma once

#include "nav/track/TkFile.h"

#include <QObject>
#include <QString>

// Length along and area enclosed by points tapped on a map, on the system's sphere (111.12 km a
// degree). The area closes the ring from the last point back to the first.
double MeasuredKm(const TrackVertices& points);
// Square metres; 0 for fewer than three points.
double EnclosedSquareMetres(const TrackVertices& points);
// "850 m²" below a hectare, "12.5 ha" below a square kilometre, "3.20 km²" above.
QString AreaText(double squareMetres);

// The map's distance measurement: one list of points shared by every map page and the track page,
// whose "Füge Längenmessung aus Karte ein" inserts them. Lives on the UI thread.
class CMeasurement : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    const TrackVertices& Points() const { return m_points; }
    void Add(double dLon, double dLat);
    void RemoveLast();
    void Clear();
    // Taps add points only while measuring is on.
    bool IsMeasuring() const { return m_bMeasuring; }
    void SetMeasuring(bool on);

Q_SIGNALS:
    void changed();

private:
    TrackVertices m_points;
    bool m_bMeasuring = false;
};
