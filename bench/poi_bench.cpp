// A country's POIs at once: a million points in one .ov2 file (about 25 MB, skipper records over
// blocks of 16, names of 10 bytes), spread evenly over Germany's box (6..15 E, 47..55 N). Measures
// loading with the sort, its parts, the nearest query within 25 km, and the memory a point takes.
#include "nav/GeoSphere.h"
#include "nav/poi/NearestPois.h"
#include "nav/poi/Ov2Reader.h"
#include "nav/poi/Ov2Writer.h"
#include "nav/poi/PoiFile.h"
#include "nav/poi/PoiSort.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>

namespace {

constexpr int kPoints = 1'000'000;

// The file, written once for all benchmarks.
const PoiFile& millionFile() {
    static QTemporaryDir dir;
    static PoiFile file = [] {
        std::mt19937 random(5);
        std::uniform_real_distribution<double> lon(6.0, 15.0), lat(47.0, 55.0);
        NamedPois points;
        points.reserve(kPoints);
        for (int i = 0; i < kPoints; ++i)
            points.push_back({lon(random), lat(random), QStringLiteral("POI %1").arg(i, 6, 10, QChar('0'))});
        QFile out(dir.filePath("million.ov2"));
        out.open(QIODevice::WriteOnly);
        out.write(WriteOv2(points));
        out.close();
        PoiFile loaded{"million.ov2", dir.path(), {}, true, {}};
        LoadPoiFile(loaded);
        return loaded;
    }();
    return file;
}

QByteArray fileBytes() {
    QFile in(millionFile().path());
    in.open(QIODevice::ReadOnly);
    return in.readAll();
}

void loadPoiFile(benchmark::State& state) {
    PoiFile file{millionFile().m_strName, millionFile().m_strFolder, {}, true, {}};
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadPoiFile(file));
    state.counters["points"] = double(file.m_entries.size());
    state.counters["bytes_per_point"] =
        double(file.m_entries.capacity() * sizeof(PoiEntry)) / double(file.m_entries.size());
    state.SetItemsProcessed(int64_t(state.iterations()) * kPoints);
}
BENCHMARK(loadPoiFile)->Unit(benchmark::kMillisecond);

void readOv2InMemory(benchmark::State& state) {
    const QByteArray bytes = fileBytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadOv2(bytes, PoiReading::AsListed));
    state.SetBytesProcessed(int64_t(state.iterations()) * bytes.size());
}
BENCHMARK(readOv2InMemory)->Unit(benchmark::kMillisecond);

// The file's points in file order, to be sorted: by the radix sort (0) or by std::sort (1, the peer).
void sortByLongitude(benchmark::State& state) {
    const std::vector<PoiEntry> unsorted = ReadOv2(fileBytes(), PoiReading::AsListed);
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<PoiEntry> entries = unsorted;
        state.ResumeTiming();
        if (state.range(0) == 0)
            SortByLongitude(entries);
        else
            std::sort(entries.begin(), entries.end(),
                      [](const PoiEntry& a, const PoiEntry& b) { return a.m_dLon < b.m_dLon; });
        benchmark::DoNotOptimize(entries.data());
    }
}
BENCHMARK(sortByLongitude)->Arg(0)->Arg(1)->ArgName("std_sort")->Unit(benchmark::kMillisecond);

// Within 25 km of points inside the box, without names (0) and with the names of the hits (1).
void nearestWithin25Km(benchmark::State& state) {
    const PoiFile& file = millionFile();
    std::mt19937 random(9);
    std::uniform_real_distribution<double> lon(7.0, 14.0), lat(48.0, 54.0);
    size_t hits = 0;
    for (auto _ : state) {
        const std::vector<PoiHit> found =
            FindNearestPois({&file}, lon(random), lat(random), "25 km", state.range(0) != 0);
        hits += found.size();
        benchmark::DoNotOptimize(found.data());
    }
    state.counters["hits"] = double(hits) / double(state.iterations());
}
BENCHMARK(nearestWithin25Km)->Arg(0)->Arg(1)->ArgName("names")->Unit(benchmark::kMillisecond);

// The same query tested on every point, as without the longitude order (peer of the search).
void nearestTestingEveryPoint(benchmark::State& state) {
    const PoiFile& file = millionFile();
    std::mt19937 random(9);
    std::uniform_real_distribution<double> lon(7.0, 14.0), lat(48.0, 54.0);
    for (auto _ : state) {
        const double lon0 = lon(random), lat0 = lat(random);
        const double dLon = 25 * 0.01 / GeoDistance(lon0, lat0, lon0 + 0.01, lat0) * 1.1;
        const double dLat = 25 * 0.01 / GeoDistance(lon0, lat0, lon0, lat0 + 0.01) * 1.1;
        size_t hits = 0;
        for (const PoiEntry& e : file.m_entries)
            if (e.m_dLon >= lon0 - dLon && e.m_dLon <= lon0 + dLon && e.m_dLat >= lat0 - dLat &&
                e.m_dLon <= lat0 + dLat && GeoDistance(lon0, lat0, e.m_dLon, e.m_dLat) <= 25)
                ++hits;
        benchmark::DoNotOptimize(hits);
    }
}
BENCHMARK(nearestTestingEveryPoint)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
