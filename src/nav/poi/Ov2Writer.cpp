#include "nav/poi/Ov2Writer.h"

#include "nav/poi/PoiName.h"

#include <QtEndian>
#include <algorithm>
#include <cmath>
#include <span>

namespace {

constexpr qsizetype kLeafPoints = 16;
constexpr qsizetype kMaxNameBytes = 1009; // a record of 1023 bytes or more has no name when read
constexpr int kSkipperLength = 21;

struct Record {
    int32_t lon; // 1e-5 deg
    int32_t lat;
    QByteArray name;
};

void appendInt32(QByteArray& out, int32_t value) {
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

void appendHeader(QByteArray& out, uint8_t type, int32_t length) {
    out.append(static_cast<char>(type));
    appendInt32(out, length);
}

void writeBlock(QByteArray& out, std::span<Record> records) {
    const auto [west, east] = std::ranges::minmax(records, {}, &Record::lon);
    const auto [south, north] = std::ranges::minmax(records, {}, &Record::lat);
    const qsizetype start = out.size();
    appendHeader(out, 1, 0); // the length is known once the block is written
    for (const int32_t corner : {east.lon, north.lat, west.lon, south.lat})
        appendInt32(out, corner);
    if (qsizetype(records.size()) <= kLeafPoints) {
        for (const Record& r : records) {
            appendHeader(out, 2, int32_t(13 + r.name.size() + 1));
            appendInt32(out, r.lon);
            appendInt32(out, r.lat);
            out.append(r.name).append('\0');
        }
    } else {
        const bool byLon = int64_t(east.lon) - west.lon >= int64_t(north.lat) - south.lat;
        const auto middle = records.begin() + records.size() / 2;
        std::ranges::nth_element(records, middle, {}, byLon ? &Record::lon : &Record::lat);
        writeBlock(out, records.first(records.size() / 2));
        writeBlock(out, records.subspan(records.size() / 2));
    }
    qToLittleEndian(static_cast<int32_t>(out.size() - start), out.data() + start + 1);
}

} // namespace

QByteArray WriteOv2(const NamedPois& points) {
    std::vector<Record> records;
    for (const NamedPoi& p : points) {
        if (!IsWritablePoi(p)) continue;
        QByteArray name = PoiNameBytes(p.m_strName);
        name.truncate(std::min(name.indexOf('\0') < 0 ? name.size() : name.indexOf('\0'), kMaxNameBytes));
        records.push_back({int32_t(std::lround(p.m_dLon * 1e5)), int32_t(std::lround(p.m_dLat * 1e5)), name});
    }
    QByteArray out;
    if (!records.empty()) writeBlock(out, records);
    return out;
}
