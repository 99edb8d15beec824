// Any bytes as "cache.ini": the scan of a folder that holds nothing else, then the choice of the best
// map for a few spots, which sorts maps whose scores may be anything (NaN included).
#include "maps/CMapCatalogue.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdint>

namespace {

class CFuzzHost : public CMapViewHost {
public:
    MapViewSpot m_spot;
    MapViewSpot ShownSpot() const override { return m_spot; }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static QTemporaryDir scratch;
    QFile cache(scratch.filePath("cache.ini"));
    if (!cache.open(QIODevice::WriteOnly)) return 0;
    cache.write(reinterpret_cast<const char*>(data), qsizetype(size));
    cache.close();

    CFuzzHost host;
    CMapCatalogue catalogue(host);
    catalogue.SetFreeMemorySource([] { return int64_t(1) << 20; }); // never decodes a picture
    catalogue.SetShowMap(true);
    catalogue.SetMapFile(scratch.filePath("map.jpg"));
    catalogue.ScanMaps();
    for (const MapViewSpot& spot :
         {MapViewSpot{11.5, 48.5, 10.0}, MapViewSpot{0, 0, std::nullopt}, MapViewSpot{-170, 80, 1e6}}) {
        host.m_spot = spot;
        catalogue.SelectBestMap();
        if (!catalogue.Maps().empty() && catalogue.CurrentMap() != catalogue.Maps().front().get())
            __builtin_trap();
    }
    catalogue.MapInfoText();
    return 0;
}
