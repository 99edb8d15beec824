#include "gps/GradientMeter.h"

#include "nav/GeoSphere.h"

#include <cmath>

void GradientMeter::addFix(double stepKm, double lon, double lat, float altitude, float& gradientPercent) {
    if (!m_bAltitudeTaken) {
        m_fRefAltitude = altitude;
        m_bAltitudeTaken = true;
    }
    if (!m_bPositionTaken) {
        m_dRefLong = lon;
        m_dRefLat = lat;
        m_bPositionTaken = true;
    }
    m_dStretchKm += stepKm;
    if (!(m_dStretchKm > kMinStretchKm)) return;
    // The way may have wound; the slope is measured over the straight line.
    m_dStretchKm = GeoDistance(m_dRefLong, m_dRefLat, lon, lat);
    if (!(m_dStretchKm > kMinStretchKm)) return;
    const double sine = (altitude - m_fRefAltitude) / m_dStretchKm * 0.001;
    // An altitude jump larger than the stretch has no slope; the last gradient stays shown.
    if (sine > -1.0 && sine < 1.0) gradientPercent = static_cast<float>(std::tan(std::asin(sine)) * 100.0);
    m_fRefAltitude = altitude;
    m_dRefLong = lon;
    m_dRefLat = lat;
}
