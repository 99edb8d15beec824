#include "nav/goto/GoToReading.h"

#include "nav/GeoConstants.h"
#include "nav/GeoSphere.h"

#include <climits>
#include <cmath>

GoToReading ReadGoTo(double fromLon, double fromLat, double toLon, double toLat, double speedKmh,
                     double headingDeg, bool bToNorth) {
    float course = 0;
    GoToReading reading;
    reading.m_dDistanceKm = GeoDistance(fromLon, fromLat, toLon, toLat, &course);
    reading.m_dCourseDeg = course * RadToDeg;
    reading.m_strField1 = QString::asprintf("%.03f km\n%d Grad", reading.m_dDistanceKm,
                                            static_cast<int>(reading.m_dCourseDeg) % 360);
    reading.m_strField2 = QString::asprintf("%.01f km/h\n%d Grad", speedKmh, static_cast<int>(headingDeg));
    if (const auto seconds = SecondsToGo(reading.m_dDistanceKm, speedKmh))
        reading.m_strField3 = TimeToGoText(*seconds);
    reading.m_dArrowDeg = bToNorth ? reading.m_dCourseDeg : reading.m_dCourseDeg - headingDeg;
    return reading;
}

std::optional<int> SecondsToGo(double distanceKm, double speedKmh) {
    const double seconds = distanceKm / speedKmh * 3600.0;
    if (!std::isfinite(seconds) || seconds <= INT_MIN || seconds >= INT_MAX) return std::nullopt;
    return static_cast<int>(seconds);
}

QString TimeToGoText(int t) {
    if (t <= 60) return QString::asprintf("%d s", t);
    if (t <= 3600) return QString::asprintf("%d min", t / 60);
    return QString::asprintf("%d h %d min", t / 3600, t % 60);
}
