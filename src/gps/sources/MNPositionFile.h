#pragma once

#include <QByteArray>
#include <cstdint>

class DeviceRoot;

// What NAVIGON MobileNavigator publishes in "/My Documents/MNPosition.txt" (an INI-style file):
// [GPSPosition] Lon, Lat, Speed, Course, Valid and [MapCoordinates] with the corners of the map it
// shows; [LastClick] is how a navigator on Linux tells the place last clicked. Keys that are
// missing read as 0.
struct MNPosition {
    double m_dLon = 0;    // degrees, east positive
    double m_dLat = 0;    // degrees, north positive
    float m_fSpeed = 0;   // km/h, as the program writes it
    float m_fCourse = 0;  // degrees
    int32_t m_nValid = 0; // non-zero: the program has a fix
    // Corners of the navigation program's map, degrees.
    double m_dLonTopLeft = 0, m_dLatTopLeft = 0;
    double m_dLonTopRight = 0, m_dLatTopRight = 0;
    double m_dLonBottomRight = 0, m_dLatBottomRight = 0;
    // The last place clicked on that map, millionths of a degree ([LastClick] Lon, Lat); 0 when none.
    int32_t m_nClickLon = 0, m_nClickLat = 0;

    // What makes a new fix: the position, the speed or the course moved.
    bool sameMotion(const MNPosition& other) const {
        return m_dLon == other.m_dLon && m_dLat == other.m_dLat && m_fSpeed == other.m_fSpeed &&
               m_fCourse == other.m_fCourse;
    }
};

namespace MNPositionFile {
constexpr const char* kPath = "/My Documents/MNPosition.txt";

// Reads the file's bytes (any text encoding the profiles know). Never fails: a file without the
// sections gives zeros.
MNPosition parse(const QByteArray& bytes);
// The file in the device root; false when it does not exist or cannot be read.
bool read(const DeviceRoot& root, MNPosition& position);
} // namespace MNPositionFile
