#pragma once

#include <cstdint>

// One point of a POI file, 24 bytes: its position in decimal degrees and where its name starts in the
// file (byte position; 0 = no name). Names stay in the file until they are shown.
struct PoiEntry {
    double m_dLon;
    double m_dLat;
    uint32_t m_nNameOffset;

    bool operator==(const PoiEntry&) const = default;
};

// How a reader reads a file: as the program lists it (only the points IsKeptPoi keeps, name offsets
// with the handheld's quirks), or completely, every point with the position of its own name (conversion
// between formats must lose nothing).
enum class PoiReading : uint8_t { AsListed, Complete };

// The program lists a point only when this holds. The last test drops the points near 0/0, and with them
// every point both west of 0.1 deg E and south of 0.1 deg N (most of South America); kept so on purpose.
inline bool IsKeptPoi(double lon, double lat) {
    return lon >= -179.0 && lat >= -89.0 && !(lon < 0.1 && lat < 0.1);
}
