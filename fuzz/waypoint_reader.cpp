// Any bytes as a waypoint file: read, written again and read back to the same records (five decimals).
#include "nav/waypoints/WaypointFile.h"

#include <cmath>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const Waypoints waypoints = ReadWaypoints(bytes);
    if (waypoints.size() > size / 2) __builtin_trap(); // a record takes two commas at least
    const Waypoints back = ReadWaypoints(WriteWaypoints(waypoints));
    if (back.size() != waypoints.size()) __builtin_trap();
    for (size_t i = 0; i < back.size(); ++i) {
        const auto near = [](double a, double b) {
            return !std::isfinite(a) ||
                   std::abs(a - b) <=
                       0.51e-5 * std::max(1.0, std::abs(a)); // half a unit of the fifth decimal
        };
        if (!near(waypoints[i].m_dLon, back[i].m_dLon) || !near(waypoints[i].m_dLat, back[i].m_dLat))
            __builtin_trap();
    }
    return 0;
}
