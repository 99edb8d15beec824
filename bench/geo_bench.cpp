// Geographic arithmetic in the loops that call it most: nearest POIs over a million entries (distance
// with or without course), map catalogue scoring, the GoTo page's grid fields. The textbook haversine
// in the same run is the yardstick for the distance.
#include "nav/CoordinateText.h"
#include "nav/GeoConstants.h"
#include "nav/GeoSphere.h"
#include "nav/Mgrs.h"
#include "nav/Utm.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <vector>

namespace {

struct Position {
    double lon, lat;
};

const std::vector<Position>& positions() {
    static const std::vector<Position> all = [] {
        std::mt19937 random(7);
        std::vector<Position> list(4096);
        for (Position& p : list)
            p = {random() / 4294967296.0 * 360 - 180, random() / 4294967296.0 * 160 - 80};
        return list;
    }();
    return all;
}

double haversineKm(double lon1, double lat1, double lon2, double lat2) {
    const double h = std::pow(std::sin((lat2 - lat1) * DegToRad / 2), 2) +
                     std::cos(lat1 * DegToRad) * std::cos(lat2 * DegToRad) *
                         std::pow(std::sin((lon2 - lon1) * DegToRad / 2), 2);
    return 2 * KmPerRadian * std::asin(std::sqrt(h));
}

// Runs `call` on consecutive positions and reports calls per second.
template <typename Call> void overPositions(benchmark::State& state, Call call) {
    const auto& list = positions();
    size_t i = 0;
    for (auto _ : state) {
        call(list[i], list[(i + 1) & 4095]);
        i = (i + 1) & 4095;
    }
    state.SetItemsProcessed(state.iterations());
}

void Distance(benchmark::State& state) {
    overPositions(state, [](Position a, Position b) {
        benchmark::DoNotOptimize(GeoDistance(a.lon, a.lat, b.lon, b.lat));
    });
}
void DistanceWithCourse(benchmark::State& state) {
    overPositions(state, [](Position a, Position b) {
        float course = 0;
        benchmark::DoNotOptimize(GeoDistance(a.lon, a.lat, b.lon, b.lat, &course));
        benchmark::DoNotOptimize(course);
    });
}
void HaversinePeer(benchmark::State& state) {
    overPositions(state, [](Position a, Position b) {
        benchmark::DoNotOptimize(haversineKm(a.lon, a.lat, b.lon, b.lat));
    });
}
void Destination(benchmark::State& state) {
    overPositions(state, [](Position a, Position b) {
        double lon = 0, lat = 0;
        GeoDestination(a.lon, a.lat, 123.4, b.lon, lon, lat);
        benchmark::DoNotOptimize(lon + lat);
    });
}
void ToUtm(benchmark::State& state) {
    overPositions(state, [](Position a, Position) {
        int32_t zone = 0;
        char hemisphere = 0;
        double easting = 0, northing = 0;
        benchmark::DoNotOptimize(
            GeodeticToUtm(a.lat * DegToRad, a.lon * DegToRad, zone, hemisphere, easting, northing));
        benchmark::DoNotOptimize(easting + northing);
    });
}
void FromUtm(benchmark::State& state) {
    overPositions(state, [](Position a, Position) {
        double lat = 0, lon = 0;
        benchmark::DoNotOptimize(UtmToGeodetic(32, a.lat < 0 ? 'S' : 'N', 500000 + a.lon * 1000,
                                               5000000 + a.lat * 10000, lat, lon));
        benchmark::DoNotOptimize(lat + lon);
    });
}
void ToMgrs(benchmark::State& state) {
    overPositions(state, [](Position a, Position) {
        QByteArray mgrs;
        benchmark::DoNotOptimize(GeodeticToMgrs(a.lat * DegToRad, a.lon * DegToRad, 5, mgrs));
    });
}
void FormatDegreesMinutes(benchmark::State& state) {
    overPositions(state, [](Position a, Position) {
        benchmark::DoNotOptimize(FormatCoordinate(a.lat, PosFormat::DegreesMinutes, true));
    });
}
void ParseDegreesMinutesSeconds(benchmark::State& state) {
    const QString text = QStringLiteral("E 011°34'12''");
    for (auto _ : state) {
        double value = 0;
        benchmark::DoNotOptimize(ParseCoordinate(text, value));
        benchmark::DoNotOptimize(value);
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(Distance);
BENCHMARK(DistanceWithCourse);
BENCHMARK(HaversinePeer);
BENCHMARK(Destination);
BENCHMARK(ToUtm);
BENCHMARK(FromUtm);
BENCHMARK(ToMgrs);
BENCHMARK(FormatDegreesMinutes);
BENCHMARK(ParseDegreesMinutesSeconds);
BENCHMARK_MAIN();
