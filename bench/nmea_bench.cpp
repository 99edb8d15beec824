// Interpreting sentences and reading logs in memory, without the cost of the disk and the output.
#include "gps/NmeaInterpreter.h"
#include "gps/TrackLogReader.h"
#include "platform/DeviceClock.h"

#include <QBuffer>
#include <benchmark/benchmark.h>

namespace {

const char* const kSentences[] = {
    "$GPGGA,123519.00,4807.0380,N,01131.0000,E,1,08,0.9,545.4,M,46.9,M,,*69\r\n",
    "$GPRMC,123519.00,A,4807.0380,N,01131.0000,E,22.40,84.4,220526,,,A*6C\r\n",
    "$GPGSV,3,1,12,01,07,037,21,02,14,074,22,03,21,111,23,04,28,148,24*78\r\n",
};

void interpretSentence(benchmark::State& state) {
    FixedDeviceClock clock(1795305630, 3600);
    NmeaInterpreter interpreter(clock);
    GpsFix fix;
    const std::string_view line = kSentences[state.range(0)];
    for (auto _ : state)
        benchmark::DoNotOptimize(interpreter.interpret(line, fix));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * line.size()));
}
BENCHMARK(interpretSentence)->DenseRange(0, 2)->ArgName("gga_rmc_gsv");

void readLogInMemory(benchmark::State& state) {
    QByteArray log;
    while (log.size() < 10'000'000)
        for (const char* line : kSentences)
            log += line;
    QBuffer buffer(&log);
    buffer.open(QIODevice::ReadOnly);
    const FixedDeviceClock clock(1795305630, 3600);
    std::vector<TrackPoint> points;
    for (auto _ : state) {
        ReadFromFile(&buffer, points, GpsFix{}, clock, state.range(0) != 0);
        benchmark::DoNotOptimize(points.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * log.size()));
}
BENCHMARK(readLogInMemory)->Arg(0)->Arg(1)->ArgName("details")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
