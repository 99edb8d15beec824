#pragma once

#include <QByteArrayView>
#include <cstdint>
#include <optional>
#include <vector>

// One epoch of a recorded log as its sentences told it, nothing derived: what an export keeps.
struct LogEpoch {
    int64_t m_nUtcMs = 0; // milliseconds since 1970, UTC
    double m_dLong = 0;   // degrees, east positive
    double m_dLat = 0;    // degrees, north positive
    std::optional<float> m_altitude; // metres above mean sea level (GGA), no offset added
    std::optional<float> m_speed;    // km/h (RMC knots converted, or VTG)
    std::optional<float> m_course;   // degrees true
    int m_nQuality = 0;              // GGA fix quality; 1 for an active RMC without GGA
    std::optional<int> m_satellites; // GGA satellites used
    std::optional<float> m_hdop;
};

// The epochs with a fix of a recorded log: every time stamp of a $GPGGA, $GPRMC or $GPGLL with a
// valid position starts an epoch, and the sentences of the same time stamp (GGA, RMC, VTG) fill
// it. The date comes from the latest $GPRMC or $GPZDA; before the first one from `fallbackDate`
// (days since 1970, UTC; the file's name). With bAcceptAllTalkers other talkers' fix sentences
// count, as the live sources take them.
std::vector<LogEpoch> readLogEpochs(QByteArrayView log, int64_t fallbackDate, bool bAcceptAllTalkers);
