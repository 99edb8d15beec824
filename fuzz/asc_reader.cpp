// Any bytes as an .asc POI text file, read as listed and completely, sorted, named and written again.
#include "nav/poi/AscReader.h"
#include "nav/poi/PoiConversion.h"
#include "nav/poi/PoiName.h"
#include "nav/poi/PoiSort.h"

#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const PoiReading reading : {PoiReading::AsListed, PoiReading::Complete}) {
        std::vector<PoiEntry> entries = ReadAsc(bytes, reading);
        if (entries.size() > size / 5) __builtin_trap(); // a point takes a line of 5 bytes at least
        for (const PoiEntry& e : entries) {
            if (reading == PoiReading::AsListed && !IsKeptPoi(e.m_dLon, e.m_dLat)) __builtin_trap();
            if (e.m_nNameOffset > size || PoiNameAt(bytes, e.m_nNameOffset).size() > 1023) __builtin_trap();
        }
        SortByLongitude(entries);
        if (!std::ranges::is_sorted(entries, {}, &PoiEntry::m_dLon)) __builtin_trap();
    }
    // Written again and read back, the points with a valid position are all there.
    QString error;
    const auto points = ReadNamedPois(bytes, PoiFormat::Asc, error);
    if (!points) __builtin_trap();
    const auto writable = std::ranges::count_if(*points, IsWritablePoi);
    if (qsizetype(ReadAsc(WriteNamedPois(*points, PoiFormat::Asc), PoiReading::Complete).size()) != writable)
        __builtin_trap();
    return 0;
}
