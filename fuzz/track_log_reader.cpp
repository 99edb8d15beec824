// Any bytes as a recorded log, read with and without details.
#include "gps/TrackLogReader.h"
#include "platform/DeviceClock.h"

#include <QBuffer>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const FixedDeviceClock clock(1795305630, 3600);
    std::vector<TrackPoint> points;
    for (const bool bDetails : {false, true})
        if (!ReadFromFile(&buffer, points, GpsFix{}, clock, bDetails) || points.size() > size)
            __builtin_trap();
    return 0;
}
