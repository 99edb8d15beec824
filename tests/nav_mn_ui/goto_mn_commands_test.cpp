#include "nav/goto/GoToTarget.h"
#include "nav/ui/CGoToView.h"
#include "nav/waypoints/WaypointList.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QAction>
#include <QMenu>
#include <gtest/gtest.h>

// "Übernehme MN Kartenmittelpunkt Koordinaten" and "Position vom letzen MN Klick" are offered only
// while the navigation program tells the position, and name the target as the page does; without a
// fix from the navigation program, "Übernehme GPS Position" takes its map centre.
TEST(CGoToView, TakesTheNavigationProgramsPositions) {
    ensureApplication();
    const char* const kCentre = "Übernehme MN Kartenmittelpunkt Koordinaten";
    const char* const kClick = "Position vom letzen MN Klick";
    const char* const kGps = "Übernehme GPS Position";
    struct Case {
        const char* legend;
        const char* command;
        std::optional<GeoPosition> centre, click;
        bool navigationSource; // the GPS position comes from the navigation program (no fix)
        bool enabled;
        const char* name; // of the target afterwards; empty: none set
    } cases[] = {
        {"map centre", kCentre, GeoPosition{48.2, 11.5}, {}, false, true, "MN Map Position"},
        {"no map centre", kCentre, {}, GeoPosition{1, 2}, false, false, ""},
        {"last click", kClick, {}, GeoPosition{48.2, 11.5}, false, true, "MN Position: (01.05.2024 09:05)"},
        {"no click", kClick, GeoPosition{1, 2}, {}, false, false, ""},
        {"GPS from the map", kGps, GeoPosition{48.2, 11.5}, {}, true, true, "Tarvik Pos: 01.05.2024 09:05"},
        {"no fix from a receiver: nothing", kGps, GeoPosition{48.2, 11.5}, {}, false, true, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        CGoToTarget target;
        CWaypointList waypoints;
        CGoToView::Services services;
        services.fix = [&] { return GoToFix{false, 0, 0, 0, 0, 0, c.navigationSource}; };
        services.localNow = [] { return QDateTime(QDate(2024, 5, 1), QTime(9, 5), Qt::UTC); };
        services.navMapCentre = [&] { return c.centre; };
        services.navLastClick = [&] { return c.click; };
        CGoToView view(target, waypoints, root.file("Waypoints.asc"), services);
        QAction* command = view.Command(QString::fromUtf8(c.command));
        ASSERT_TRUE(command);
        Q_EMIT view.findChild<QMenu*>()->aboutToShow();
        EXPECT_EQ(command->isEnabled(), c.enabled);
        command->trigger();
        double lon = 0, lat = 0;
        EXPECT_EQ(target.GetTarget(lon, lat), *c.name != '\0');
        EXPECT_EQ(target.Name(), QString::fromUtf8(c.name));
        if (*c.name) {
            EXPECT_DOUBLE_EQ(lat, 48.2);
            EXPECT_DOUBLE_EQ(lon, 11.5);
        }
    }
}
