#pragma once

#include <QString>
#include <optional>

// What the GoTo page shows for one position update with a valid fix and a set target.
struct GoToReading {
    double m_dDistanceKm = 0;
    double m_dCourseDeg = 0; // to the target, 0..360 from north
    QString m_strField1;     // "%.03f km\n%d Grad": distance and course
    QString m_strField2;     // "%.01f km/h\n%d Grad": speed and heading
    QString m_strField3;     // time to go, see TimeToGoText; empty while standing
    double m_dArrowDeg = 0;  // the arrow: course minus heading, or the course alone toward north
};

// From the GPS position to the target (degrees), at `speedKmh` and `headingDeg` (from north). With
// `bToNorth` the arrow points relative to north.
GoToReading ReadGoTo(double fromLon, double fromLat, double toLon, double toLat, double speedKmh,
                     double headingDeg, bool bToNorth);

// t = (int)(distance / speed * 3600) seconds; nothing when it does not fit an int (standing still).
std::optional<int> SecondsToGo(double distanceKm, double speedKmh);
// "%d s" up to 60 s, "%d min" up to an hour, else "%d h %d min" with the hours and t mod 60 (the
// seconds' remainder, as the handheld showed it).
QString TimeToGoText(int seconds);
