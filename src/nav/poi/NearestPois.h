#pragma once

#include "nav/poi/PoiFile.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <vector>

// One point found by FindNearestPois.
struct PoiHit {
    const PoiFile* m_pFile;
    int m_nIndex;       // of the point in m_pFile->m_entries
    int16_t m_nCourse;  // from the reference point, whole degrees (truncated) clockwise from north
    double m_dDistance; // km
    QByteArray m_name;  // 8-bit text; empty unless the names were asked for
};

// The radius of a choice such as "25 km": its leading whole number in km; "all" (no number) is 90000.
int PoiRadiusKm(const QString& radiusText);

// Every point of `files` within the radius of (lon0, lat0) (degrees), in file order and point order.
// A point is tried only inside the box lon0 -+ dLon, lat >= lat0 - dLat and lon <= lat0 + dLat, with
// dLon and dLat the radius in degrees plus 10 %. The last test compares the longitude with a latitude
// bound, which leaves out every point whose longitude exceeds the reference's latitude by more than the
// box; the program always asked so and keeps it. Names are read only for the points found, and only
// `withNames`. Uses the longitude order of the points, so a file of a million is searched in its box.
std::vector<PoiHit> FindNearestPois(const std::vector<const PoiFile*>& files, double lon0, double lat0,
                                    const QString& radiusText, bool withNames);

// The list's sort key: its magnitude is the column plus one (1 distance, 2 course, 3 name), its sign the
// direction. Names compare on their first four bytes only ("Bahnhof A" and "Bahnhof B" are equal); equal
// hits keep their order. Other keys leave the order alone.
void SortPoiHits(std::vector<PoiHit>& hits, int sortKey);
