#include "gps/CFendixDoc.h"
#include "maps/MapCalibration.h"
#include "maps/ui/CMapView.h"
#include "maps/ui/MapMenus.h"
#include "nav/GeoSphere.h"
#include "nav/goto/GoToTarget.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/CalibratedMap.h"
#include "support/TestApplication.h"
#include "support/TestData.h"
#include "support/TestRoot.h"

#include <QMenu>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

namespace {

struct MapPage {
    TestRoot root;
    FixedDeviceClock clock = *FixedDeviceClock::fromIso8601("2025-05-17T07:14:00Z");
    CFendixDoc doc{root.root(), clock};
    std::unique_ptr<CMapView> view;

    // The fix at (lon, lat).
    explicit MapPage(QPointF fix = {10.0, 47.8}) {
        ensureApplication();
        doc.Fix().m_dPosLong = fix.x(), doc.Fix().m_dPosLat = fix.y();
        doc.Fix().m_nValid = 1;
    }
    // The first page over `mapFile` (none: no map shown).
    CMapView& Open(const QString& mapFile = QString(), QSize size = {400, 300}) {
        if (!mapFile.isEmpty()) {
            CRegistryKey key;
            key.WriteString("LoadedMap", mapFile);
            key.WriteDword("ShowMap", 1);
        }
        view = std::make_unique<CMapView>(doc, 0);
        view->resize(size);
        view->UpdateViewport();
        return *view;
    }
    // Draws until the image has arrived (or failed) and the map choice has settled.
    void Settle() {
        QImage frame(view->size(), QImage::Format_ARGB32_Premultiplied);
        for (int i = 0; i < 50 && view->StatusText().startsWith("Load "); ++i)
            QTest::qWait(20);
        QPainter painter(&frame);
        view->Render(painter);
    }
};

double pixelDistance(QPointF a, QPointF b) {
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

} // namespace

TEST(MapView, FollowingKeepsThePositionAtTheAnchor) {
    const struct {
        const char* legend;
        bool perspective, turn;
        double zoom;
        QPointF anchor; // of a 400 x 300 view
    } cases[] = {
        {"flat, north up", false, false, 1.0, {200, 150}},
        {"flat, turned, zoomed in", false, true, 4.0, {200, 150}},
        {"perspective: the lower third", true, false, 0.5, {200, 200}},
        {"perspective and turned", true, true, 2.0, {200, 200}},
    };
    for (const auto& c : cases) {
        MapPage page;
        CMapView& view = page.Open();
        MapDisplaySettings settings = view.DisplaySettings();
        settings.m_bShowPerspective = c.perspective, settings.m_bTurnMap = c.turn;
        view.ChangeDisplaySettings(settings);
        view.ZoomAt({50, 50}, c.zoom); // while following, around the position
        for (const QPointF fix : {QPointF(10.02, 47.82), QPointF(10.05, 47.79)}) {
            page.doc.Fix().m_dPosLong = fix.x(), page.doc.Fix().m_dPosLat = fix.y();
            page.doc.Fix().m_fCourse = 70.0f;
            view.OnUpdate(GpsChange::kRmc);
            view.UpdateViewport();
            EXPECT_LT(pixelDistance(view.Viewport().ToScreen(fix), c.anchor), 1e-6) << c.legend;
        }
    }
}

TEST(MapView, ScreenAndGroundConvertBothWays) {
    const struct {
        const char* legend;
        double scale, rotation, horizon;
    } cases[] = {
        {"1 m a pixel", 1.0, 0, 0},
        {"street level, turned", 0.1, 33, 0},
        {"country, upside down", 250.0, 180, 0},
        {"perspective", 5.0, 0, 300},
        {"perspective, turned", 20.0, 290, 500},
    };
    for (const auto& c : cases) {
        MapViewport viewport;
        viewport.SetSize({800, 480});
        viewport.SetGeoCentre(10.0219, 47.82535);
        viewport.SetScale(c.scale);
        viewport.SetRotation(c.rotation);
        viewport.SetPerspective(c.horizon);
        for (const QPointF screen :
             {QPointF(0, 479), QPointF(400, 240), QPointF(799, 200), QPointF(13, 470)}) {
            const auto ground = viewport.FromScreen(screen);
            ASSERT_TRUE(ground) << c.legend;
            EXPECT_LT(pixelDistance(viewport.ToScreen(*ground), screen), 1e-6) << c.legend;
        }
        if (c.horizon > 0) {
            EXPECT_FALSE(viewport.FromScreen({400, viewport.Anchor().y() - c.horizon - 1}))
                << c.legend << ": sky";
            continue;
        }
        // 100 pixels towards the top of a flat view lie 100 x scale metres away in the direction shown up.
        const auto ahead = viewport.FromScreen(viewport.Anchor() - QPointF(0, 100));
        float course = 0;
        const double km = GeoDistance(10.0219, 47.82535, ahead->x(), ahead->y(), &course);
        EXPECT_NEAR(km * 1000.0, 100 * c.scale, 100 * c.scale * 1e-3) << c.legend;
        EXPECT_NEAR(std::remainder(course * 180.0 / M_PI - c.rotation, 360.0), 0.0, 0.05) << c.legend;
    }
}

TEST(MapView, TitleAndScaleFollowTheAutomaticMapChange) {
    MapPage shown({10.02, 47.815});
    const QString town =
        writeCalibratedMap(shown.root.file("town.png"), {400, 400}, {10.00, 47.80}, {10.04, 47.83});
    writeCalibratedMap(shown.root.file("region.png"), {400, 400}, {9.90, 47.70}, {10.30, 48.00});
    CMapView& view = shown.Open(town);
    shown.Settle();
    EXPECT_EQ(view.PageTitle(), "town.png");
    EXPECT_EQ(view.StatusText(), "");
    const double scale = view.Viewport().Scale();

    shown.doc.Fix().m_dPosLong = 10.2; // outside the town map
    view.OnUpdate(GpsChange::kRmc);
    shown.Settle();
    shown.Settle();
    EXPECT_EQ(view.PageTitle(), "region.png");
    EXPECT_NEAR(view.Viewport().Scale(), scale, scale * 1e-6) << "the ground scale stays across the change";
}

TEST(MapView, TheMapCoversTheGroundInEveryView) {
    const struct {
        const char* legend;
        bool perspective, turn;
    } cases[] = {{"flat", false, false}, {"perspective", true, false}, {"perspective, turned", true, true}};
    for (const auto& c : cases) {
        MapPage page({10.02, 47.86});
        // 13 m a pixel: the map reaches behind the viewer, where a perspective turns over.
        CMapView& view = page.Open(
            writeCalibratedMap(page.root.file("map.png"), {800, 800}, {9.95, 47.75}, {10.09, 47.88}));
        MapDisplaySettings settings = view.DisplaySettings();
        settings.m_bShowPerspective = c.perspective, settings.m_bTurnMap = c.turn;
        view.ChangeDisplaySettings(settings);
        page.doc.Fix().m_fCourse = 130.0f;
        page.Settle();
        QImage frame(view.size(), QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&frame);
        view.Render(painter);
        for (const QPoint at : {QPoint(200, 299), QPoint(5, 260), QPoint(395, 190), QPoint(200, 130)}) {
            const QColor shown = frame.pixelColor(at); // the map's dark green, in 16 bits a pixel
            EXPECT_TRUE(shown.red() < 8 && std::abs(shown.green() - 128) < 6 && shown.blue() < 8)
                << c.legend << " at " << at.x() << "," << at.y() << ": " << shown.name().toStdString();
        }
    }
}

TEST(MapView, HiddenPagesLetGoOfTheirImages) {
    MapPage page({10.02, 47.815});
    CMapView& view =
        page.Open(writeCalibratedMap(page.root.file("map.png"), {300, 300}, {10.0, 47.8}, {10.04, 47.83}));
    page.Settle();
    ASSERT_TRUE(view.Catalogue().CurrentMap()->HasImage());
    view.DropCachedData();
    EXPECT_FALSE(view.Catalogue().CurrentMap()->HasImage());
    view.show(); // shown again: loaded again
    page.Settle();
    EXPECT_TRUE(view.Catalogue().CurrentMap()->HasImage());
}

TEST(MapView, BadMapsGiveAStatusText) {
    TestRoot files;
    const QString noImage = files.file("text.kal");
    QFile(noImage).open(QIODevice::WriteOnly);
    writeCalibratedMap(files.file("gone.png"), {50, 50}, {10, 47}, {10.1, 47.1});
    QFile::remove(files.file("gone.png"));
    QDir().mkpath(files.file("empty"));
    QFile::copy(testDataDir() + "/maps/images/huge-header.png", files.file("huge.png"));
    const struct {
        const char* legend;
        QString mapFile;
    } cases[] = {
        {"the image is missing", files.file("gone.png")},
        {"a file that is no image", noImage},
        {"50000 x 50000 pixels", files.file("huge.png")},
        {"an empty folder", files.file("empty/none.png")},
    };
    for (const auto& c : cases) {
        MapPage page;
        CMapView& view = page.Open(c.mapFile);
        page.Settle();
        EXPECT_EQ(view.StatusText(), "Error while loading " + c.mapFile) << c.legend;
        EXPECT_FALSE(view.grab().isNull()) << c.legend;
    }
}

TEST(MapView, CalibrationMenuSetsThePointsUnderTheFinger) {
    MapPage page;
    QImage scan(600, 400, QImage::Format_RGB32);
    scan.fill(Qt::white);
    ASSERT_TRUE(scan.save(page.root.file("scan.png")));
    CMapView& view = page.Open();
    view.OpenMapFile(page.root.file("scan.png"));
    page.Settle();
    ASSERT_EQ(view.Viewport().GetPlane(), MapViewport::Plane::Image) << "no calibration yet";

    CGoToTarget target;
    view.SetGoToTarget(&target);
    const struct {
        int slot;
        QPointF finger; // the image's centre is at the view's centre, one pixel a pixel
        const char* entry;
        QPointF position; // the fix, or the GoTo target
        Point pixel;
    } steps[] = {
        {0, {200, 150}, "Übernehme aktuelle Position", {10.0, 47.8}, {300, 200}},
        {1, {300, 50}, "Übernehme aktuelle Position", {10.01, 47.81}, {400, 100}},
        {2, {350, 200}, "Übernehme Position der GoTo Seite", {10.02, 47.79}, {450, 250}},
    };
    for (const auto& step : steps) {
        page.doc.Fix().m_dPosLong = step.position.x(), page.doc.Fix().m_dPosLat = step.position.y();
        if (step.slot == 2) {
            page.doc.Fix().m_dPosLong = 0;
            target.SetTarget(step.position.x(), step.position.y(), QStringLiteral("Ziel"));
        }
        std::unique_ptr<QMenu> menu(MapMenus::CalibrationMenu(view, step.finger));
        const QString title = QStringLiteral("Kalibrierung %1. Punkt").arg(step.slot + 1);
        QAction* take = nullptr;
        for (const QMenu* point : menu->findChildren<QMenu*>())
            if (point->title() == title)
                for (QAction* action : point->actions())
                    if (action->text() == QString::fromUtf8(step.entry)) take = action;
        ASSERT_NE(take, nullptr) << title.toStdString();
        ASSERT_TRUE(take->isEnabled()) << step.entry;
        take->trigger();
        const MapCalibration& map = *view.Catalogue().CurrentMap();
        EXPECT_EQ(map.GetPointPixel(step.slot), step.pixel);
        double lon = 0, lat = 0;
        map.GetPointGeo(step.slot, lon, lat);
        EXPECT_EQ(QPointF(lon, lat), step.position);
    }
    view.UpdateViewport();
    EXPECT_EQ(view.Viewport().GetPlane(), MapViewport::Plane::Geographic) << "the points calibrate the map";
    EXPECT_TRUE(view.StatusText().isEmpty());
}

TEST(MapView, FingerGestures) {
    MapPage page;
    CMapView& view = page.Open();
    const double scale = view.Viewport().Scale();
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(100, 100));
    QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(102, 101));
    view.UpdateViewport();
    EXPECT_DOUBLE_EQ(view.Viewport().Scale(), scale / 2) << "a double tap zooms in";
    EXPECT_TRUE(view.IsFollowing());

    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(200, 150));
    QTest::mouseMove(&view, QPoint(230, 150));
    QTest::mouseMove(&view, QPoint(260, 170));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(260, 170));
    view.UpdateViewport();
    EXPECT_FALSE(view.IsFollowing()) << "a drag stops following";
    EXPECT_LT(pixelDistance(view.Viewport().ToScreen({10.0, 47.8}), {260, 170}), 0.01)
        << "the ground moved along";

    const auto ground = view.Viewport().FromScreen({50, 60});
    view.ZoomAt({50, 60}, 3.0);
    view.UpdateViewport();
    EXPECT_LT(pixelDistance(view.Viewport().ToScreen(*ground), {50, 60}), 0.01)
        << "zoom keeps the touched point";
    view.OnCommand(PageCommand::FollowPosition);
    EXPECT_TRUE(view.IsFollowing());
}

TEST(MapView, EachPageKeepsItsOwnSettings) {
    MapPage page;
    const struct {
        int instance;
        const char* key;
    } pages[] = {{0, "SOFTWARE\\Omvale\\Fendix"},
                 {1, "SOFTWARE\\Omvale\\Fendix\\Map1"},
                 {4, "SOFTWARE\\Omvale\\Fendix\\Map4"}};
    for (const auto& p : pages) {
        CMapView view(page.doc, p.instance);
        MapDisplaySettings settings = view.DisplaySettings();
        settings.m_bTurnMap = true;
        settings.m_nScaleType = 2 + p.instance;
        view.ChangeDisplaySettings(settings);
        EXPECT_EQ(CRegistryKey(p.key).GetDword("TurnMap", 0), 1u) << p.key;
        EXPECT_EQ(CRegistryKey(p.key).GetDword("ScaleType", 0), uint32_t(2 + p.instance)) << p.key;
    }
    CMapView fresh(page.doc, 2);
    EXPECT_FALSE(fresh.DisplaySettings().m_bTurnMap) << "page 3 was never changed";
}
