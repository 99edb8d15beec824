// Any bytes as a waypoint import file: merged into an empty list twice, the second time adding nothing.
#include "nav/waypoints/WaypointImport.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Waypoints list;
    const Waypoints added = ImportWaypoints(bytes, list);
    if (added.size() != list.size() || list.size() > size / 6) __builtin_trap(); // "N 1 E 1" at least
    for (const Waypoint& w : list)
        if (w.m_strName.contains('"')) __builtin_trap(); // trimmed first, so blanks inside quotes stay
    if (!ImportWaypoints(bytes, list).empty()) __builtin_trap();
    return 0;
}
