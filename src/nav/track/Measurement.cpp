#include "nav/track/Measurement.h"

#include "nav/GeoConstants.h"

#include <cmath>

double MeasuredKm(const TrackVertices& points) {
    const std::vector<double> km = RunningKm(points);
    return km.empty() ? 0.0 : km.back();
}

double EnclosedSquareMetres(const TrackVertices& points) {
    if (points.size() < 3) return 0.0;
    // The ring's signed area on the sphere, summed edge by edge against the equator; exact enough
    // for the rings a finger taps.
    double sum = 0.0;
    for (size_t i = 0; i < points.size(); ++i) {
        const TrackVertex& a = points[i];
        const TrackVertex& b = points[(i + 1) % points.size()];
        sum += (b.m_dLon - a.m_dLon) * DegToRad *
               (2.0 + std::sin(a.m_dLat * DegToRad) + std::sin(b.m_dLat * DegToRad));
    }
    const double radius = KmPerRadian * 1000.0;
    return std::abs(sum) * radius * radius / 2.0;
}

QString AreaText(double squareMetres) {
    if (squareMetres < 1e4) return QStringLiteral("%1 m²").arg(squareMetres, 0, 'f', 0);
    if (squareMetres < 1e6) return QStringLiteral("%1 ha").arg(squareMetres / 1e4, 0, 'f', 1);
    return QStringLiteral("%1 km²").arg(squareMetres / 1e6, 0, 'f', 2);
}

void CMeasurement::Add(double dLon, double dLat) {
    m_points.push_back({dLon, dLat});
    Q_EMIT changed();
}

void CMeasurement::RemoveLast() {
    if (m_points.empty()) return;
    m_points.pop_back();
    Q_EMIT changed();
}

void CMeasurement::Clear() {
    m_points.clear();
    Q_EMIT changed();
}

void CMeasurement::SetMeasuring(bool on) {
    m_bMeasuring = on;
    Q_EMIT changed();
}
