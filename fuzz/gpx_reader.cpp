// Any bytes as a GPX file: read, written again and read back to as many points.
#include "nav/gpx/GpxReader.h"
#include "nav/gpx/GpxWriter.h"

#include <cstdint>

namespace {
size_t pointCount(const GpxDocument& d) {
    size_t n = d.m_waypoints.size();
    for (const GpxRoute& r : d.m_routes)
        n += r.m_points.size();
    for (const GpxTrack& t : d.m_tracks)
        for (const GpxPoints& s : t.m_segments)
            n += s.size();
    return n;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString error;
    const auto document = ReadGpx(bytes, error);
    if (!document) {
        if (error.isEmpty()) __builtin_trap();
        return 0;
    }
    const auto back = ReadGpx(WriteGpx(*document), error);
    if (!back || pointCount(*back) != pointCount(*document)) __builtin_trap();
    return 0;
}
