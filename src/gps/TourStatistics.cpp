#include "gps/TourStatistics.h"

void TourStatistics::clearRun() {
    m_nRunTime = 0;
    m_dRunDistance = 0;
    m_nMovingTime = 0;
    m_dMovingDistance = 0;
}

void TourStatistics::clearExtremes() {
    m_dMinLong = kNoMinimum;
    m_dMaxLong = 0.0;
    m_dMinLat = kNoMinimum;
    m_dMaxLat = 0.0;
    m_fMinAltitude = kNoMinAltitude;
    m_fMaxAltitude = kNoMaxAltitude;
    m_fMaxSpeed = 0;
}

void TourStatistics::noteExtremes(double lon, double lat, float altitude, float hdop) {
    if (lon < m_dMinLong) m_dMinLong = lon;
    if (lon > m_dMaxLong) m_dMaxLong = lon;
    if (lat < m_dMinLat) m_dMinLat = lat;
    if (lat > m_dMaxLat) m_dMaxLat = lat;
    if (hdop < kMaxHdopForAltitude) {
        if (altitude < m_fMinAltitude) m_fMinAltitude = altitude;
        if (altitude > m_fMaxAltitude) m_fMaxAltitude = altitude;
    }
}
