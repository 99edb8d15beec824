// Any bytes as an OziExplorer .map: read, then its points (or corners) fitted as an import does, and
// the fit written back out.
#include "maps/MapImport.h"
#include "maps/OziMapFile.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    OziMapData ozi;
    QString error;
    if (!ReadOziMap(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)), ozi, error)) {
        if (error.isEmpty()) __builtin_trap();
        return 0;
    }
    if (ozi.grid.size() != ozi.points.size()) __builtin_trap();
    MapCalibration map("fuzz.png");
    map.SetMapSize(ozi.size);
    // Thirty points give 27405 sets of four to try; the target stays quick with at most twelve.
    std::vector<ImportPoint> points = ozi.points.empty() ? ozi.corners : ozi.points;
    points.resize(std::min<size_t>(points.size(), 12));
    if (FitImportPoints(points, map, error) && !map.Verify()) __builtin_trap();
    OziMapData back;
    ReadOziMap(WriteOziMap(map), back, error);
    return 0;
}
