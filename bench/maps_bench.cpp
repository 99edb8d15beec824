// Raster maps in the loops that matter: the catalogue scan at start (10,000 maps, from .kal files and
// from cache.ini), the map choice that runs at every redraw of a map page, the conversions of every
// drawn position, and decoding a 10000 x 8000 JPEG within the memory budget.
#include "BigJpeg.h"
#include "maps/CMapCatalogue.h"
#include "settings/RegistryHive.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <fstream>
#include <string>

namespace {

constexpr int kGrid = 100; // 100 x 100 maps of 0.1 deg over 5..15 E, 45..55 N

class CBenchHost : public CMapViewHost {
public:
    MapViewSpot m_spot;
    MapViewSpot ShownSpot() const override { return m_spot; }
};

// A folder of 10,000 calibrated maps (two, three or four points in turn; no images) and a hive.
struct MapFolder {
    QTemporaryDir dir;
    std::shared_ptr<RegistryHive> hive = std::make_shared<RegistryHive>(dir.filePath("registry.db"));

    MapFolder() {
        RegistryHive::setCurrent(hive);
        for (int row = 0; row < kGrid; ++row)
            for (int col = 0; col < kGrid; ++col) {
                const double lon = 5.0 + col * 0.1, lat = 45.0 + row * 0.1;
                MapCalibration map(dir.filePath(QStringLiteral("m%1_%2.jpg").arg(row).arg(col)));
                map.SetMapSize(Size{1000, 1000});
                const Point pixels[4] = {{0, 1000}, {1000, 0}, {1000, 1000}, {0, 0}};
                const double lons[4] = {lon, lon + 0.1, lon + 0.1, lon},
                             lats[4] = {lat, lat + 0.1, lat, lat + 0.1};
                map.SetPoints(2 + (row + col) % 3, pixels, lons, lats);
                map.SaveCalibration();
            }
    }
    QString cache() const { return dir.filePath("cache.ini"); }
    QString anyMap() const { return dir.filePath("m50_50.jpg"); }
};

MapFolder& folder() {
    static MapFolder made;
    return made;
}

// A catalogue over the folder, current map in the middle of the grid.
struct Catalogue {
    CBenchHost host;
    CMapCatalogue catalogue{host};
    Catalogue() {
        catalogue.SetShowMap(true);
        catalogue.SetMapFile(folder().anyMap());
    }
};

void ScanFromKalFiles(benchmark::State& state) {
    Catalogue made;
    CMapCatalogue& catalogue = made.catalogue;
    for (auto _ : state) {
        QFile::remove(folder().cache()); // the scan reads every .kal and writes the cache afresh
        catalogue.ScanMaps();
    }
    state.counters["maps"] = double(catalogue.Maps().size());
}

void ScanFromCache(benchmark::State& state) {
    Catalogue made;
    CMapCatalogue& catalogue = made.catalogue;
    catalogue.ScanMaps(); // writes the cache when it is missing
    for (auto _ : state)
        catalogue.ScanMaps();
    state.counters["maps"] = double(catalogue.Maps().size());
}

// A drive across the grid at 50 m a redraw, the view at 20 m per pixel.
void SelectBestMap(benchmark::State& state) {
    Catalogue made;
    CMapCatalogue& catalogue = made.catalogue;
    catalogue.ScanMaps();
    int step = 0;
    for (auto _ : state) {
        made.host.m_spot = MapViewSpot{5.5 + (step % 100000) * 0.0007, 46.0 + (step % 100000) * 0.0004, 20.0};
        ++step;
        catalogue.SelectBestMap();
    }
    state.counters["maps"] = double(catalogue.Maps().size());
}

MapCalibration fourPointMap() {
    MapCalibration map;
    map.SetMapSize(Size{1000, 800});
    const Point pixels[4] = {{100, 0}, {900, 0}, {1000, 800}, {0, 800}};
    const double lons[4] = {11, 12, 12, 11}, lats[4] = {49, 49, 48, 48};
    map.SetPoints(4, pixels, lons, lats);
    return map;
}

void GeoToPixel(benchmark::State& state) {
    const MapCalibration map = fourPointMap();
    double lon = 11.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.GeoToPixel(lon, 48.5));
        lon = lon < 12.0 ? lon + 1e-4 : 11.0;
    }
    state.SetItemsProcessed(state.iterations());
}

void PixelToGeo(benchmark::State& state) {
    const MapCalibration map = fourPointMap();
    int x = 0;
    for (auto _ : state) {
        double lon, lat;
        map.PixelToGeo(x, 400, lon, lat);
        benchmark::DoNotOptimize(lon + lat);
        x = (x + 1) % 1000;
    }
    state.SetItemsProcessed(state.iterations());
}

// Peak resident memory of the process in kB, and its reset (Linux 4.0 on).
long peakKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
    return 0;
}
long residentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmRSS:", 0) == 0) return std::stol(line.substr(6));
    return 0;
}
void resetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

void LoadMapImage(benchmark::State& state) {
    const QString path = bigJpeg();
    CBenchHost host;
    CMapCatalogue catalogue(host);
    MapCalibration map(path);
    map.SetMapSize(Size{10000, 8000});
    long peakGrowth = 0, kept = 0;
    for (auto _ : state) {
        map.UnloadImage();
        const long before = residentKilobytes();
        resetPeak();
        if (!catalogue.LoadMapImage(map)) state.SkipWithError("the image did not load");
        peakGrowth = std::max(peakGrowth, peakKilobytes() - before);
        kept = residentKilobytes() - before;
    }
    state.counters["peak_MB"] = peakGrowth / 1024.0;
    state.counters["kept_MB"] = kept / 1024.0;
    state.counters["image_MB"] = map.Image().sizeInBytes() / 1048576.0;
}

} // namespace

BENCHMARK(ScanFromKalFiles)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(ScanFromCache)->Unit(benchmark::kMillisecond);
BENCHMARK(SelectBestMap)->Unit(benchmark::kMicrosecond);
BENCHMARK(GeoToPixel);
BENCHMARK(PixelToGeo);
BENCHMARK(LoadMapImage)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_MAIN();
