// Settings store: a page switch writes "CurrentView" every time, so one value write must stay far
// below a millisecond; reads happen at every settings load.
#include "settings/CRegistryKey.h"

#include <QSettings>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

struct Hive {
    QTemporaryDir dir;
    std::shared_ptr<RegistryHive> hive = std::make_shared<RegistryHive>(dir.filePath("registry.db"));
    Hive() { RegistryHive::setCurrent(hive); }
};

void WriteString(benchmark::State& state) {
    Hive hive;
    CRegistryKey key;
    int n = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(key.WriteString("CurrentView", n++ % 2 ? "Kartenanzeige" : "Fahrtenbuch"));
}
BENCHMARK(WriteString)->Unit(benchmark::kMicrosecond);

// The peer: Qt's own settings store, made durable the only way it offers (sync after each write).
void QSettingsWriteAndSync(benchmark::State& state) {
    QTemporaryDir dir;
    QSettings settings(dir.filePath("tarvik.ini"), QSettings::IniFormat);
    int n = 0;
    for (auto _ : state) {
        settings.setValue("CurrentView", n++ % 2 ? "Kartenanzeige" : "Fahrtenbuch");
        settings.sync();
    }
}
BENCHMARK(QSettingsWriteAndSync)->Unit(benchmark::kMicrosecond);

void ReadDwordWithDefault(benchmark::State& state) {
    Hive hive;
    CRegistryKey key;
    key.WriteDword("Speed", 4800);
    for (auto _ : state)
        benchmark::DoNotOptimize(key.GetDword("Speed", 0));
}
BENCHMARK(ReadDwordWithDefault)->Unit(benchmark::kMicrosecond);

void OpenKeyAndReadMissing(benchmark::State& state) {
    Hive hive;
    for (auto _ : state) {
        CRegistryKey key;
        benchmark::DoNotOptimize(key.GetFlag("NoPowerdown", false));
    }
}
BENCHMARK(OpenKeyAndReadMissing)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
