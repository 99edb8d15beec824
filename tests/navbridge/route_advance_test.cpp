#include "integrations/navbridge/RouteAdvance.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QDateTime>
#include <QFile>
#include <gtest/gtest.h>

namespace {

constexpr int64_t kNow = 1'700'000'000;

// A route file in the navigation program's "Routes" folder, last written `hoursAgo` before kNow.
void writeRoute(const TestRoot& root, const QString& name, const QByteArray& lines, double hoursAgo) {
    const QString path = writeFile(root.file("Navi/Routes/" + name), lines);
    QFile file(path);
    file.open(QIODevice::ReadWrite);
    file.setFileTime(QDateTime::fromSecsSinceEpoch(kNow - int64_t(hoursAgo * 3600)),
                     QFileDevice::FileModificationTime);
}

const QByteArray kThreePoints = "-|-|-|-|-|-|-|-|-|-|11.50000|48.10000|-|\n"
                                "broken line\n"
                                "-|-|-|-|-|-|-|-|-|-|11.60000|48.20000|-|\n"
                                "-|-|-|-|-|-|-|-|-|-|x|48.25000|-|\n"
                                "-|-|-|-|-|-|-|-|-|-|11.70000|48.30000|-|\n";

} // namespace

// The newest route file is read unless it is older than a day; lines without a position are skipped.
TEST(RouteAdvance, ReadsTheNewestFreshRoute) {
    struct Case {
        const char* legend;
        QList<std::tuple<QString, QByteArray, double>> files; // name, lines, hours old
        int expectedPoints;                                   // 0: nothing read
    } cases[] = {
        {"one fresh route", {{" Tarvik.rte", kThreePoints, 1.5}}, 3},
        {"too old", {{" Tarvik.rte", kThreePoints, 25}}, 0},
        {"the newer of two", {{"old.rte", kThreePoints, 5}, {"new.rte", kThreePoints.left(42), 2}}, 1},
        {"other files do not count", {{"notes.txt", kThreePoints, 1}}, 0},
        {"no position in it", {{"a.rte", "nothing|here\n", 1}}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        for (const auto& [name, lines, hours] : c.files)
            writeRoute(root, name, lines, hours);
        FixedDeviceClock clock(kNow);
        RouteAdvance advance(root.root(), clock);
        EXPECT_EQ(advance.Load(QStringLiteral("\\Navi\\")), c.expectedPoints > 0);
        EXPECT_EQ(advance.Points().size(), c.expectedPoints);
    }
}

// Reaching a point hands over the one after it; a left-out point is passed by reaching a later one;
// the last point ends the route. Radius 0 means 100 m.
TEST(RouteAdvance, HandsOverTheNextPointWhenOneIsReached) {
    struct Step {
        const char* legend;
        GeoPosition at;
        int radius;
        int expectedId; // -1: nothing handed over
    } steps[] = {
        {"far from every point", {48.0, 11.0}, 100, -1},
        {"80 m from the first point, default radius", {48.10072, 11.5}, 0, 1},
        {"the first point again: already passed", {48.1, 11.5}, 100, -1},
        {"150 m from the second point, radius 100 m", {48.20135, 11.6}, 100, -1},
        {"150 m from the second point, radius 200 m", {48.20135, 11.6}, 200, 2},
        {"the last point: the end", {48.3, 11.7}, 100, -1},
        {"the last point again", {48.3, 11.7}, 100, -1},
    };
    TestRoot root;
    writeRoute(root, " Tarvik.rte", kThreePoints, 0.5);
    FixedDeviceClock clock(kNow);
    RouteAdvance advance(root.root(), clock);
    ASSERT_TRUE(advance.Load(QStringLiteral("\\Navi\\")));
    for (const Step& step : steps) {
        SCOPED_TRACE(step.legend);
        int id = -1;
        const auto next = advance.Tick(step.at, step.radius, id);
        EXPECT_EQ(next.has_value(), step.expectedId >= 0);
        if (next) {
            EXPECT_EQ(id, step.expectedId);
            EXPECT_EQ(*next, advance.Points()[step.expectedId]);
        }
    }
}
