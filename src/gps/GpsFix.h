#pragma once

#include "gps/GpsSettings.h"
#include "gps/sources/SourceTable.h"

#include <cstdint>

// What one interpreted sentence changed in GpsFix. The interpreter returns exactly one of the
// values below; every value but kRejected and kUnderstood is ORed into m_nPendingChanges.
namespace GpsChange {
constexpr uint16_t kRejected = 0;    // checksum wrong, line unsplittable, or an unreadable GLL
constexpr uint16_t kUnderstood = 1;  // fine, but nothing in GpsFix changed (GSA, GSV, others, short)
constexpr uint16_t kPosition = 0x02; // longitude and latitude
constexpr uint16_t kAltitude = 0x04; // altitude, quality, satellites and HDOP
constexpr uint16_t kSpeedCourse = 0x20;
constexpr uint16_t kEpoch = 0x40;   // a sentence with a time stamp arrived
constexpr uint16_t kNoData = 0x400; // hint of the supervision timer: the source went quiet

constexpr uint16_t kVtg = kSpeedCourse;                      // 32
constexpr uint16_t kGll = kEpoch | kPosition;                // 66
constexpr uint16_t kGga = kEpoch | kPosition | kAltitude;    // 70
constexpr uint16_t kRmc = kEpoch | kPosition | kSpeedCourse; // 98
} // namespace GpsChange

// The receiver state the document keeps and every page reads. Written and read on the UI thread
// only. Times are whole seconds since 1970 in *local* time (UTC plus the local offset of the
// DeviceClock), the way the handheld kept them.
struct GpsFix {
    double m_dPosLong = GpsSettings::kLastLong.m_default; // degrees, east positive
    double m_dPosLat = GpsSettings::kLastLat.m_default;   // degrees, north positive
    int64_t m_tPrevFixTime = 0; // local seconds; the fix before the current one (start: now - 1 day)
    int64_t m_tFixTime = 0;     // local seconds; the current fix (start: now)
    uint8_t m_nValid = 0;       // GGA quality as sent, or 1/0 from an RMC/GLL status; 0 = no fix
    uint8_t m_nSatellites = 0;  // satellites used (GGA field 7, or counted from GSA)
    float m_fHdop = 0;
    float m_fAltitude = 0; // metres, the altitude offset already added
    float m_fSpeed = 0;    // km/h
    float m_fCourse = 0;   // degrees true, as sent
    // Metres added to every altitude, unless taken from the GGA geoid separation.
    int32_t m_nAltitudeOffset = GpsSettings::kAltitudeOffset.m_default;
    bool m_bAutoAltitudeOffset = GpsSettings::kAutoAltitudeOffset.m_default;
    // km/h; below it the course is kept.
    float m_fThresholdHeading = GpsSettings::kThresholdHeading.m_default;
    // Set the device clock from the next serial fix; cleared once done.
    bool m_bSetSystemTime = GpsSettings::kSetSystemTime.m_default;
    uint8_t m_nSource = 0;          // a SourceTable index
    uint16_t m_nPendingChanges = 0; // OR of GpsChange values not yet handled by the epoch handling

    bool hasFix() const { return m_nValid != 0; }
    bool fromSerialPort() const { return SourceTable::isSerialPort(m_nSource); }
};

// One point of a track. Longitude and latitude come first and in this order, as the track module
// keeps them; the rest is what the log reader fills in (zero when the log did not say).
struct TrackPoint {
    double m_dLong = 0;  // degrees, east positive
    double m_dLat = 0;   // degrees, north positive
    int64_t m_tTime = 0; // local seconds since 1970
    float m_fHdop = 0;
    float m_fAltitude = 0; // metres, the altitude offset added
    float m_fSpeed = 0;    // km/h
    uint8_t m_nValid = 0;
    uint8_t m_nSatellites = 0;
};
