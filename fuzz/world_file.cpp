// Any bytes as a world file, in each kind of units: the image corners to positions, the four-point
// fit over them, and the world file written back for an affine fit.
#include "maps/MapImport.h"
#include "maps/WorldFile.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    WorldFile world;
    QString error;
    if (!ReadWorldFile(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)), world, error))
        return 0;
    std::vector<WorldUnits> kinds = {WorldUnits{WorldUnits::Degrees}, WorldUnits{WorldUnits::WebMercator},
                                     WorldUnits{WorldUnits::Utm, 32, 'N'},
                                     WorldUnits{WorldUnits::Utm, 60, 'S'}};
    if (const auto guessed = GuessWorldUnits(world)) kinds.push_back(*guessed);
    for (const WorldUnits& units : kinds) {
        std::vector<ImportPoint> corners;
        for (const Point pixel : {Point{0, 0}, Point{640, 0}, Point{640, 480}, Point{0, 480}}) {
            ImportPoint point{pixel};
            if (WorldToGeo(world, units, pixel.x, pixel.y, point.lon, point.lat)) corners.push_back(point);
        }
        MapCalibration map("fuzz.png");
        map.SetMapSize(Size{640, 480});
        if (FitImportPoints(corners, map, error)) WriteWorldFile(map);
        corners.resize(std::min<size_t>(corners.size(), 3));
        if (FitImportPoints(corners, map, error)) WriteWorldFile(map);
    }
    return 0;
}
