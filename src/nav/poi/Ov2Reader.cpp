#include "nav/poi/Ov2Reader.h"

#include <limits>

namespace {

constexpr qsizetype kHeaderSize = 5;
constexpr qsizetype kSkipperBox = 16;
constexpr int32_t kPointSize = 13;    // header and both coordinates
constexpr int32_t kNamedBelow = 1023; // longer records have no name

int32_t int32At(QByteArrayView bytes, qsizetype pos) {
    uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | static_cast<uint8_t>(bytes[pos + i]);
    return static_cast<int32_t>(value);
}

} // namespace

std::vector<PoiEntry> ReadOv2(QByteArrayView bytes, PoiReading reading) {
    std::vector<PoiEntry> entries;
    const qsizetype size = bytes.size();
    entries.reserve(1000);
    qsizetype pos = 0;
    while (size - pos >= kHeaderSize) {
        const uint8_t type = static_cast<uint8_t>(bytes[pos]);
        const int32_t length = int32At(bytes, pos + 1);
        const qsizetype start = pos;
        pos += kHeaderSize;
        if (type == 0) {
            if (length >= 0) pos += length; // 64-bit: a length near 2 GB only ends the file
        } else if (type == 1) {
            pos += kSkipperBox;
        } else if (type == 2 || type == 3) {
            if (length < kPointSize || length > size - start) break;
            const double lon = int32At(bytes, pos) * 1e-5;
            const double lat = int32At(bytes, pos + 4) * 1e-5;
            pos = start + length;
            // A record of coordinates alone (13 bytes) has no name, and as listed nor has one of 1023 or
            // more.
            const bool named = length > kPointSize &&
                               (length < kNamedBelow || reading == PoiReading::Complete) &&
                               start + kPointSize <= std::numeric_limits<uint32_t>::max();
            if (reading == PoiReading::Complete || IsKeptPoi(lon, lat))
                entries.push_back({lon, lat, named ? static_cast<uint32_t>(start + kPointSize) : 0u});
        }
    }
    return entries;
}
