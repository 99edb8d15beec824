#include "gps/CFendixDoc.h"
#include "maps/MapSettings.h"
#include "maps/shapes/ShapeLayers.h"
#include "maps/ui/CMapOverlay.h"
#include "maps/ui/CMapView.h"
#include "maps/ui/overlays/MapOverlays.h"
#include "nav/GeoSphere.h"
#include "nav/goto/GoToTarget.h"
#include "nav/poi/PoiLoader.h"
#include "nav/poi/PoiSettings.h"
#include "nav/track/Measurement.h"
#include "nav/waypoints/WaypointList.h"
#include "platform/DeviceClock.h"
#include "support/Files.h"
#include "support/ShapeFiles.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QPainter>
#include <QTest>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace {

const QPointF kFix(10.0, 47.8);

// The position `east` and `north` metres from the fix, walked on the sphere.
QPointF offset(double east, double north) {
    double lon = 0, lat = 0;
    GeoDestination(kFix.x(), kFix.y(), std::hypot(east, north) / 1000.0,
                   std::atan2(east, north) * 180.0 / M_PI, lon, lat);
    return {lon, lat};
}

TrackVertex vertex(double east, double north) {
    const QPointF at = offset(east, north);
    return {at.x(), at.y()};
}

// A red line layer across the view 130 m south of the fix, made with shapelib's own tools.
bool makeRoadLayer(const TestRoot& root) {
    const auto pair = [](QPointF at) {
        return QString("%1 %2").arg(at.x(), 0, 'f', 9).arg(at.y(), 0, 'f', 9);
    };
    if (!makeShapefile(root.file("roads"), "arc",
                       {{{pair(offset(-180, -130)), pair(offset(180, -130))}, "B1"}}))
        return false;
    writeFile(root.file("Tarvik.gsh"), "[Straßen]\nFile = roads.shp\nColor = Color(200,0,0)\nWidth = 3\n");
    return true;
}

struct OverlaidPage {
    TestRoot root;
    FixedDeviceClock clock = *FixedDeviceClock::fromIso8601("2025-05-17T07:14:00Z");
    CFendixDoc doc{root.root(), clock};
    CGoToTarget target;
    CWaypointList waypoints;
    CMeasurement measurement;
    PoiLoader pois;
    TrackVertices track{vertex(-150, 100), vertex(150, 100)};
    std::unique_ptr<CMapView> view;
    bool bShapes = false;
    std::shared_ptr<ShapeLayers> shapes; // as the program gives them: nothing while they open

    OverlaidPage() {
        ensureApplication();
        doc.Fix().m_dPosLong = kFix.x(), doc.Fix().m_dPosLat = kFix.y();
        doc.Fix().m_nValid = 1;
        const QPointF poi = offset(-100, 0);
        QDir().mkpath(root.file("POI"));
        writeFile(
            root.file("POI/Rast.asc"),
            QStringLiteral("%1, %2, \"Rast\"\n").arg(poi.x(), 0, 'f', 7).arg(poi.y(), 0, 'f', 7).toLatin1());
        CRegistryKey(PoiSettings::kFilesKey).WriteFlag("Rast.asc", true);
        pois.start(0);
        for (int i = 0; i < 200 && (pois.isLoading() || pois.total() == 0); ++i)
            QTest::qWait(10);
        waypoints.Load(root.file("Waypoints.asc"));
        const QPointF flag = offset(-120, -80);
        waypoints.Append({flag.x(), flag.y(), "Hütte"});
        const QPointF goal = offset(120, -100);
        target.SetTarget(goal.x(), goal.y(), "Ziel");
        for (const TrackVertex& v : {vertex(50, 60), vertex(150, 60)})
            measurement.Add(v.m_dLon, v.m_dLat);
        bShapes = makeRoadLayer(root);
        shapes = LoadShapeLayers(root.file("Tarvik.gsh"), {});

        view = MakeView(0);
    }
    // Map page `instance` over the overlays.
    std::unique_ptr<CMapView> MakeView(int instance) {
        auto made = std::make_unique<CMapView>(doc, instance);
        made->resize(400, 300);
        MapOverlaySources sources;
        sources.shapes = [this] { return shapes; };
        sources.track = [this]() -> const TrackVertices& { return track; };
        sources.pPois = &pois;
        sources.pWaypoints = &waypoints;
        sources.pTarget = &target;
        sources.pMeasurement = &measurement;
        AddMapOverlays(*made, sources);
        return made;
    }
    // A frame of `shown` (the page's view) with the overlays' image drawn for it.
    QImage Frame(CMapView* shown = nullptr) {
        shown = shown ? shown : view.get();
        QImage frame(shown->size(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&frame);
        shown->Render(painter);
        shown->FinishOverlays();
        shown->Render(painter);
        return frame;
    }
    // The screen pixel `east` and `north` metres from the fix on the flat, north-up view.
    QPoint Pixel(double east, double north) const {
        const double scale = view->Viewport().Scale();
        return QPoint(int(std::floor(200 + east / scale)), int(std::floor(150 - north / scale)));
    }
};

bool isNear(QColor a, QColor b) {
    return std::abs(a.red() - b.red()) < 40 && std::abs(a.green() - b.green()) < 40 &&
           std::abs(a.blue() - b.blue()) < 40;
}

} // namespace

TEST(MapOverlays, EachIsDrawnAtItsPositionsInItsColour) {
    OverlaidPage page;
    ASSERT_EQ(page.pois.total(), 1);
    const QImage frame = page.Frame();
    ASSERT_NEAR(page.view->Viewport().Scale(), 1.0, 1e-9) << "no map: a metre a pixel";
    const struct {
        const char* legend;
        double east, north; // metres from the fix
        QColor colour;
    } cases[] = {
        {"the track, in TrackColor", -60, 100, QColor(0, 192, 0)},
        {"the waypoint's flag", -116, -68, QColor(192, 0, 0)},
        {"the target's ring", 130, -100, QColor(208, 0, 208)},
        {"the line from the position to the target", 60, -50, QColor(208, 0, 208)},
        {"the POI without icon", -100, 0, QColor(0, 96, 192)},
        {"the measurement, in ColMeasurement", 100, 60, QColor(0, 0, 192)},
        {"open ground stays white", -150, -20, QColor(255, 255, 255)},
    };
    for (const auto& c : cases) {
        const QPoint at = page.Pixel(c.east, c.north);
        EXPECT_TRUE(isNear(frame.pixelColor(at), c.colour))
            << c.legend << " at " << at.x() << "," << at.y() << ": "
            << frame.pixelColor(at).name().toStdString();
    }
    if (!page.bShapes) GTEST_SKIP() << "shapelib's tools (Debian package shapelib) are missing";
    EXPECT_TRUE(isNear(frame.pixelColor(page.Pixel(-150, -130)), QColor(200, 0, 0)))
        << "the shapefile's line";
}

TEST(MapOverlays, SwitchedOffOrHiddenTheyLeaveTheGround) {
    OverlaidPage page;
    const auto index = [&page](const char* title) {
        for (size_t i = 0; i < page.view->OverlayCount(); ++i)
            if (page.view->Overlay(i).Title() == title) return i;
        ADD_FAILURE() << title;
        return size_t(0);
    };
    page.view->SetOverlayShown(index("Track"), false);
    EXPECT_TRUE(isNear(page.Frame().pixelColor(page.Pixel(-60, 100)), Qt::white)) << "track switched off";
    uint32_t shown = 1;
    EXPECT_TRUE(CRegistryKey(MapSettings::KeyPath(0)).ReadDword("ShowTrack", shown));
    EXPECT_EQ(shown, 0u) << "the choice is kept";

    CRegistryKey key;
    writeSetting(key, PoiSettings::kHidePOIByDiag, true);
    MapDisplaySettings settings = page.view->DisplaySettings();
    settings.m_bTurnMap = true;
    page.view->ChangeDisplaySettings(settings);
    page.view->show(); // reads the overlays' settings
    page.doc.Fix().m_fCourse = 0.0f;
    EXPECT_TRUE(isNear(page.Frame().pixelColor(page.Pixel(-100, 0)), Qt::white))
        << "HidePOIByDiag hides the POIs while the map turns";
}

TEST(MapOverlays, TapsAddMeasuringPointsOnlyWhileMeasuring) {
    OverlaidPage page;
    page.measurement.Clear();
    page.view->show();
    page.view->SetFollowing(true);
    const auto tap = [&page](QPoint at) { QTest::mouseClick(page.view.get(), Qt::LeftButton, {}, at); };
    tap(page.Pixel(-50, 50));
    EXPECT_TRUE(page.measurement.Points().empty()) << "not measuring";
    page.measurement.SetMeasuring(true);
    for (const QPoint at : {page.Pixel(0, 50), page.Pixel(100, 50), page.Pixel(100, -50)})
        tap(at);
    ASSERT_EQ(page.measurement.Points().size(), 3u);
    const TrackVertex expected = vertex(100, -50);
    EXPECT_NEAR(GeoDistance(page.measurement.Points()[2].m_dLon, page.measurement.Points()[2].m_dLat,
                            expected.m_dLon, expected.m_dLat) *
                    1000.0,
                0.0, 1.5)
        << "the tapped ground within a pixel";
}

TEST(MapOverlays, TheOverlayImageShowsWhatAFreshPageShows) {
    const auto none = [](OverlaidPage&) {};
    const auto noMove = [](CMapView&) {};
    const struct {
        const char* legend;
        std::function<void(OverlaidPage&)> changeData;
        std::function<void(CMapView&)> move; // done to both pages
    } cases[] = {
        {"panned within the image's margin: the image is moved", none,
         [](CMapView& view) { view.PanBy(QPointF(200, 150), QPointF(231, 137)); }},
        {"zoomed in", none, [](CMapView& view) { view.ZoomAt(QPointF(200, 150), 2.0); }},
        {"the track page's track edited", [](OverlaidPage& page) { page.track.push_back(vertex(160, -60)); },
         noMove},
        {"a waypoint added",
         [](OverlaidPage& page) {
             const QPointF at = offset(60, 110);
             page.waypoints.Append({at.x(), at.y(), "Quelle"});
         },
         noMove},
    };
    for (const auto& c : cases) {
        OverlaidPage page;
        page.Frame();
        c.changeData(page);
        c.move(*page.view);
        const QImage kept = page.Frame();
        const std::unique_ptr<CMapView> fresh = page.MakeView(1);
        c.move(*fresh);
        const QImage drawn = page.Frame(fresh.get());
        int differing = 0;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x)
                differing += kept.pixel(x, y) != drawn.pixel(x, y);
        EXPECT_EQ(differing, 0) << c.legend;
    }
}

TEST(MapOverlays, ShapeLayersShowOnceOpened) {
    OverlaidPage page;
    if (!page.bShapes) GTEST_SKIP() << "shapelib's tools (Debian package shapelib) are missing";
    const std::shared_ptr<ShapeLayers> opened = page.shapes;
    page.shapes.reset();
    EXPECT_TRUE(isNear(page.Frame().pixelColor(page.Pixel(-150, -130)), Qt::white)) << "still opening";
    page.shapes = opened;
    EXPECT_TRUE(isNear(page.Frame().pixelColor(page.Pixel(-150, -130)), QColor(200, 0, 0))) << "open";
}
