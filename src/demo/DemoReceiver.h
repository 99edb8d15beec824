#pragma once

#include "demo/DemoSky.h"
#include "demo/DriveSimulator.h"
#include "demo/SeededRandom.h"

#include <QByteArray>

// What a GPS receiver in the car says each second: $GPGGA and $GPRMC every second, $GPGSA and the
// $GPGSV set every few seconds. It adds the receiver's own small, slowly wandering errors to the
// true position, altitude and speed; it needs a few seconds for the first fix and for a new one
// after a tunnel, and without a fix it repeats its last position with quality 0 and status "V".
class DemoReceiver {
public:
    static constexpr int kSatelliteEverySeconds = 5;  // GSA and GSV
    static constexpr double kGeoidSeparationM = 47.9; // the geoid above the ellipsoid in the Allgäu

    explicit DemoReceiver(uint64_t seed);

    // The sentences for one second of the drive, in the order the receiver sends them.
    QByteArray sentences(const DriveSample& truth);

private:
    struct Reported {
        GeoPosition m_pos;
        double m_dAltitudeM = 0;
        double m_dSpeedKmh = 0;
        double m_dCourseDeg = 0;
    };
    void measure(const DriveSample& truth);
    QByteArray gga(int64_t utc, int used) const;
    QByteArray rmc(int64_t utc) const;
    QByteArray gsa(const std::vector<SkySatellite>& sky, int used) const;
    static QByteArray gsv(const std::vector<SkySatellite>& sky);

    SeededRandom m_random;
    DemoSky m_sky;
    WanderingOffset m_northError;
    WanderingOffset m_eastError;
    WanderingOffset m_altitudeError;
    Reported m_reported;
    int m_nSecondsWithSky = 0;
    bool m_bEverFixed = false;
    bool m_bFix = false;
    double m_dHdop = 0;
    int64_t m_nSeconds = 0;
};
