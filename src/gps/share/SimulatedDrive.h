#pragma once

#include <QByteArray>
#include <QList>
#include <cstdint>
#include <optional>

// The drive shown to the readers of the shared stream while a simulation target is set: from the
// receiver's last valid position straight towards the target at a set speed, stopping there. The
// receiver's own position sentences (GGA, RMC, GLL, VTG, GNS of any talker) are held back, and at
// each new second of the receiver's time a $GPGGA and a $GPRMC of the simulated position take their
// place; every other sentence passes. So the drive keeps the receiver's clock, whatever the pace
// the stream is played at.
class SimulatedDrive {
public:
    void setSpeedKmh(double speed) { m_dSpeedKmh = speed; }
    void setTarget(double lat, double lon);
    void end();
    bool active() const { return m_target.has_value(); }

    // Takes one line of the receiver's stream (with its line end) and appends the lines that the
    // shared stream carries in its place.
    void take(const QByteArray& line, QList<QByteArray>& out);

private:
    struct Point {
        double m_dLat = 0;
        double m_dLon = 0;
    };

    // Remembers the receiver's position, time and date; true when the line is a position sentence.
    bool observe(const QByteArray& line, std::optional<int64_t>& epochUtc);
    void step(int64_t utc, QList<QByteArray>& out);

    double m_dSpeedKmh = 50;
    std::optional<Point> m_target;
    std::optional<Point> m_lastValid; // the receiver's
    std::optional<Point> m_position;  // the simulated one, once the drive began
    double m_dAltitude = 0;
    float m_fCourseRad = 0;
    int64_t m_nDay = 0;               // days since 1970 of the receiver's last date
    std::optional<int64_t> m_lastUtc; // of the last simulated epoch
};
