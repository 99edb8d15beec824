// Frames of a map page drawn offscreen over a 10000 x 8000 JPEG (2 m a pixel): following a drive,
// turned to the course, in perspective, and zoomed out, and the same with every overlay over it (a
// track of 10,000 points, 100,000 POIs around the drive, a 50 MB shapefile of lines made at start in
// the temporary root); the time from opening that picture to its preview and to the whole map, and
// how long the window's thread is held meanwhile.
#include "BigJpeg.h"
#include "gps/CFendixDoc.h"
#include "maps/MapImageLoader.h"
#include "maps/shapes/ShapeLayers.h"
#include "maps/ui/CMapView.h"
#include "maps/ui/overlays/MapOverlays.h"
#include "nav/poi/PoiLoader.h"
#include "nav/poi/PoiSettings.h"
#include "platform/DeviceClock.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "settings/RegistryHive.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <random>
#include <shapefil.h>

namespace {

constexpr double kWest = 10.0, kSouth = 47.7; // the picture's bottom left corner
constexpr double kMetresPerPixel = 2.0;

// A device root with the picture calibrated over 20 x 16 km, and the document of a drive on it.
struct Bench {
    QTemporaryDir dir;
    DeviceRoot root{dir.path()};
    std::shared_ptr<RegistryHive> hive;
    FixedDeviceClock clock = *FixedDeviceClock::fromIso8601("2025-05-17T07:14:00Z");
    std::unique_ptr<CFendixDoc> doc;
    QString picture = bigJpeg();

    Bench() {
        root.ensureExists();
        DeviceRoot::setCurrent(root);
        hive = std::make_shared<RegistryHive>(root.registryFile());
        RegistryHive::setCurrent(hive);
        MapCalibration map(picture);
        map.SetMapSize(Size{10000, 8000});
        map.SetPoint(0, Point{0, 8000}, kWest, kSouth);
        map.SetPoint(1, Point{10000, 0}, kWest + 20000.0 / 74660.0, kSouth + 16000.0 / 111120.0);
        map.SaveCalibration();
        QFile::remove(QFileInfo(picture).dir().filePath("cache.ini"));
        doc = std::make_unique<CFendixDoc>(root, clock);
        doc->Fix().m_nValid = 1;
        MoveTo(0);
    }
    // The drive: 5 m a frame to the north-east.
    void MoveTo(int step) {
        doc->Fix().m_dPosLong = 10.1 + step * 5e-5;
        doc->Fix().m_dPosLat = 47.76 + step * 3e-5;
    }
};

Bench& bench() {
    static Bench made;
    return made;
}

// Lines of 20 vertices in random walks over the picture, until the .shp holds `bytes`.
void writeLineShapefile(const QString& base, qint64 bytes) {
    const QByteArray name = QFile::encodeName(base);
    SHPHandle shp = SHPCreate(name.constData(), SHPT_ARC);
    DBFHandle dbf = DBFCreate(name.constData());
    DBFAddField(dbf, "NAME", FTString, 12, 0);
    std::mt19937 random(17);
    std::uniform_real_distribution<double> lon(kWest, kWest + 0.268), lat(kSouth, kSouth + 0.144);
    std::normal_distribution<double> step(0.0, 0.0004);
    double x[20], y[20];
    for (int id = 0; qint64(id) * 380 < bytes; ++id) {
        x[0] = lon(random), y[0] = lat(random);
        for (int i = 1; i < 20; ++i)
            x[i] = x[i - 1] + step(random), y[i] = y[i - 1] + step(random);
        SHPObject* line = SHPCreateSimpleObject(SHPT_ARC, 20, x, y, nullptr);
        SHPWriteObject(shp, -1, line);
        SHPDestroyObject(line);
        DBFWriteStringAttribute(dbf, id, 0, QByteArray::number(id).constData());
    }
    SHPClose(shp);
    DBFClose(dbf);
}

// What the overlays draw: made once, shared by the frames that show them.
struct OverlayWorld {
    TrackVertices track;
    PoiLoader pois;
    std::shared_ptr<ShapeLayers> shapes;
    double dShapeOpenMs = 0;
    qint64 nShapeBytes = 0;

    explicit OverlayWorld(Bench& b) {
        std::mt19937 random(5);
        std::uniform_real_distribution<double> near(-0.01, 0.01);
        for (int i = 0; i < 10000; ++i) // the drive's way, 5 m apart, a little to the side
            track.push_back({10.1 + i * 5e-5 - 0.002, 47.76 + i * 3e-5 + 0.001});
        QDir(b.dir.path()).mkpath("POI");
        QByteArray asc;
        for (int i = 0; i < 100000; ++i)
            asc += QByteArray::number(10.1 + near(random), 'f', 6) + ", " +
                   QByteArray::number(47.76 + near(random), 'f', 6) + ", \"P" + QByteArray::number(i) +
                   "\"\n";
        QFile poiFile(b.dir.filePath("POI/Bench.asc"));
        poiFile.open(QIODevice::WriteOnly);
        poiFile.write(asc);
        poiFile.close();
        CRegistryKey(PoiSettings::kFilesKey).WriteFlag("Bench.asc", true);
        pois.start(0);
        writeLineShapefile(b.dir.filePath("lines"), 50LL << 20);
        nShapeBytes = QFileInfo(b.dir.filePath("lines.shp")).size();
        QFile profile(b.dir.filePath("Tarvik.gsh"));
        profile.open(QIODevice::WriteOnly);
        profile.write("[Linien]\nFile = lines.shp\nColor = Color(160,0,160)\nWidth = 2\nLabel = NAME\n");
        profile.close();
        QElapsedTimer clock;
        clock.start();
        shapes = LoadShapeLayers(b.dir.filePath("Tarvik.gsh"), {});
        dShapeOpenMs = clock.nsecsElapsed() / 1e6;
        while (pois.isLoading())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
};

OverlayWorld& overlays() {
    static OverlayWorld made(bench());
    return made;
}

void waitFor(const std::function<bool()>& done, int ms) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

enum Mode { kNorthUp, kTurned, kPerspective, kZoomedOut };

// Args: width, height, mode, overlays (0 or 1).
void Frame(benchmark::State& state) {
    Bench& b = bench();
    CRegistryKey key;
    key.WriteString("LoadedMap", b.picture);
    key.WriteDword("ShowMap", 1);
    const int mode = int(state.range(2));
    key.WriteDword("TurnMap", mode == kTurned || mode == kPerspective);
    key.WriteDword("ShowPerspective", mode == kPerspective);
    key.WriteDword("Perspective", 500);
    CMapView view(*b.doc, 0);
    view.resize(int(state.range(0)), int(state.range(1)));
    if (state.range(3)) {
        OverlayWorld& world = overlays();
        MapOverlaySources sources;
        sources.shapes = [&world] { return world.shapes; };
        sources.track = [&world]() -> const TrackVertices& { return world.track; };
        sources.pPois = &world.pois;
        AddMapOverlays(view, sources);
        state.counters["pois"] = world.pois.total();
        state.counters["shp_MB"] = world.nShapeBytes / 1048576.0;
        state.counters["shp_open_ms"] = world.dShapeOpenMs;
    }
    waitFor([&] { return view.Catalogue().CurrentMap()->HasImage(); }, 20000);
    if (!view.Catalogue().CurrentMap()->HasImage()) state.SkipWithError("the map did not load");
    if (mode == kZoomedOut) view.ZoomAt(view.Viewport().Anchor(), 0.25);
    b.doc->Fix().m_fCourse = 30.0f;
    view.OnUpdate(0);
    waitFor([] { return false; }, 1000); // the turn settles
    QImage frame(view.size(), QImage::Format_ARGB32_Premultiplied);
    {
        QPainter first(&frame);
        view.Render(first);
        view.FinishOverlays(); // the frames start with the overlays' first image there
    }
    int step = 0;
    double longest = 0; // ms: a frame that also took the overlays' data for a new image
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        b.MoveTo(++step);
        view.OnUpdate(GpsChange::kRmc);
        QPainter painter(&frame);
        view.Render(painter);
        longest = std::max(longest, clock.nsecsElapsed() / 1e6);
    }
    state.counters["fps"] = benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["longest_ms"] = longest;
}

// From OpenMap to the reduced preview and to the whole picture, with the longest time the window's
// thread was busy at once meanwhile.
void OpenLargeMap(benchmark::State& state) {
    Bench& b = bench();
    double toPreview = 0, toMap = 0, longestHold = 0;
    for (auto _ : state) {
        CMapView view(*b.doc, 1);
        view.resize(800, 480);
        QElapsedTimer clock;
        clock.start();
        view.OpenMapFile(b.picture);
        double hold = clock.nsecsElapsed() / 1e6;
        bool previewSeen = false;
        while (!view.Catalogue().CurrentMap()->HasImage() && clock.elapsed() < 30000) {
            QElapsedTimer round;
            round.start();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            QImage frame(view.size(), QImage::Format_ARGB32_Premultiplied);
            QPainter painter(&frame);
            view.Render(painter);
            hold = std::max(hold, round.nsecsElapsed() / 1e6);
            if (!previewSeen && frame.pixelColor(600, 350) != Qt::white) {
                previewSeen = true;
                toPreview = clock.nsecsElapsed() / 1e6;
            }
        }
        toMap = clock.nsecsElapsed() / 1e6;
        longestHold = std::max(longestHold, hold);
        state.SetIterationTime(toMap / 1000.0);
    }
    state.counters["preview_ms"] = toPreview;
    state.counters["map_ms"] = toMap;
    state.counters["longest_hold_ms"] = longestHold;
}

// The preview alone: the JPEG decoded at an eighth of its size.
void ReducedDecode(benchmark::State& state) {
    const QString picture = bench().picture;
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadReducedBitmap(picture, 8));
}

// The memory the loaded map keeps against the budget of (width x height + 524288) x 2 bytes.
void LoadedMapMemory(benchmark::State& state) {
    Bench& b = bench();
    CMapView view(*b.doc, 2);
    view.OpenMapFile(b.picture);
    waitFor([&] { return view.Catalogue().CurrentMap()->HasImage(); }, 30000);
    for (auto _ : state)
        benchmark::DoNotOptimize(view.Catalogue().CurrentMap()->Image().sizeInBytes());
    state.counters["kept_MB"] = view.Catalogue().CurrentMap()->Image().sizeInBytes() / 1048576.0;
    state.counters["budget_MB"] = (10000.0 * 8000.0 + 524288.0) * 2.0 / 1048576.0;
}

} // namespace

BENCHMARK(Frame)
    ->ArgNames({"w", "h", "mode", "overlays"})
    ->ArgsProduct({{800}, {480}, {kNorthUp, kTurned, kPerspective, kZoomedOut}, {0, 1}})
    ->ArgsProduct({{1920}, {1080}, {kNorthUp, kTurned, kPerspective, kZoomedOut}, {0, 1}})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OpenLargeMap)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(ReducedDecode)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(LoadedMapMemory)->Iterations(1);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
