#include "nav/GeoSphere.h"
#include "nav/poi/NearestPois.h"
#include "nav/poi/PoiSort.h"
#include "support/Files.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr double kLon0 = 11.5; // Munich: longitude below the latitude, as in most of Europe
constexpr double kLat0 = 48.1;

// A point `km` from the reference along `courseDeg`.
PoiEntry pointAt(double km, double courseDeg, uint32_t nameOffset = 0) {
    PoiEntry entry{0, 0, nameOffset};
    GeoDestination(kLon0, kLat0, km, courseDeg, entry.m_dLon, entry.m_dLat);
    return entry;
}

PoiFile fileOf(std::vector<PoiEntry> entries) {
    SortByLongitude(entries);
    return PoiFile{"p.ov2", {}, {}, true, std::move(entries)};
}

PoiHit hit(double km, int16_t course, const char* name) {
    return {nullptr, 0, course, km, name};
}

} // namespace

TEST(PoiNearest, RadiusFromTheChoiceText) {
    const struct {
        const char* text;
        int km;
    } cases[] = {{"25 km", 25},  {"50 km", 50}, {"100 km", 100}, {"200 km", 200},
                 {"all", 90000}, {" 7km", 7},   {"", 90000},     {"-5 km", -5}};
    for (const auto& c : cases)
        EXPECT_EQ(PoiRadiusKm(c.text), c.km) << c.text;
}

TEST(PoiNearest, FindsThePointsWithinTheRadius) {
    const PoiFile file = fileOf({pointAt(24.9, 90.0), pointAt(25.1, 90.0), pointAt(60.0, 0.0),
                                 pointAt(3.0, 45.7), pointAt(199.0, 200.0), pointAt(5000.0, 270.0)});
    const struct {
        const char* radius;
        std::vector<double> km; // the distances found, nearest first
    } cases[] = {
        {"25 km", {3.0, 24.9}},
        {"50 km", {3.0, 24.9, 25.1}},
        {"100 km", {3.0, 24.9, 25.1, 60.0}},
        {"200 km", {3.0, 24.9, 25.1, 60.0, 199.0}},
        {"all", {3.0, 24.9, 25.1, 60.0, 199.0, 5000.0}},
    };
    for (const auto& c : cases) {
        std::vector<PoiHit> hits = FindNearestPois({&file}, kLon0, kLat0, c.radius, false);
        SortPoiHits(hits, 1);
        ASSERT_EQ(hits.size(), c.km.size()) << c.radius;
        for (size_t i = 0; i < hits.size(); ++i)
            EXPECT_NEAR(hits[i].m_dDistance, c.km[i], 1e-6) << c.radius << " #" << i;
        EXPECT_EQ(hits[0].m_nCourse, 45) << "45.7 deg is truncated";
    }
}

// The box's fourth test compares the longitude with the latitude bound: east of the reference's latitude
// (plus the box) nothing is found, unless the radius is "all".
TEST(PoiNearest, FourthBoxTestComparesTheLongitudeWithTheLatitude) {
    const struct {
        const char* legend;
        double lon0, lat0;
        const char* radius;
        size_t found;
    } cases[] = {
        {"Munich: longitude below the latitude", 11.5, 48.1, "25 km", 1},
        {"Arabian Sea at 50 E 10 N: longitude beyond the latitude", 50.0, 10.0, "25 km", 0},
        {"there, 200 km: the box reaches 10 + 2 deg, not 50", 50.0, 10.0, "200 km", 0},
        {"there, all", 50.0, 10.0, "all", 1},
        {"Ottawa: west longitudes are always below", -75.7, 45.4, "25 km", 1},
    };
    for (const auto& c : cases) {
        PoiEntry near{0, 0, 0};
        GeoDestination(c.lon0, c.lat0, 5.0, 30.0, near.m_dLon, near.m_dLat);
        const PoiFile file = fileOf({near});
        EXPECT_EQ(FindNearestPois({&file}, c.lon0, c.lat0, c.radius, false).size(), c.found) << c.legend;
    }
}

// Searching the longitude range of the box finds exactly what testing every point finds, in the same order.
TEST(PoiNearest, LongitudeOrderSearchEqualsTestingEveryPoint) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> lon(-20.0, 40.0), lat(30.0, 65.0);
    std::vector<PoiEntry> entries;
    for (uint32_t i = 0; i < 20000; ++i)
        entries.push_back({lon(random), lat(random), i});
    const PoiFile file = fileOf(entries);
    for (const char* radius : {"25 km", "100 km", "200 km", "all"}) {
        for (int trial = 0; trial < 20; ++trial) {
            const double lon0 = lon(random), lat0 = lat(random);
            const double r = PoiRadiusKm(radius);
            const double dLon = r * 0.01 / GeoDistance(lon0, lat0, lon0 + 0.01, lat0) * 1.1;
            const double dLat = r * 0.01 / GeoDistance(lon0, lat0, lon0, lat0 + 0.01) * 1.1;
            std::vector<int> expected;
            for (size_t i = 0; i < file.m_entries.size(); ++i) {
                const PoiEntry& e = file.m_entries[i];
                if (e.m_dLon >= lon0 - dLon && e.m_dLon <= lon0 + dLon && e.m_dLat >= lat0 - dLat &&
                    e.m_dLon <= lat0 + dLat && GeoDistance(lon0, lat0, e.m_dLon, e.m_dLat) <= r)
                    expected.push_back(int(i));
            }
            std::vector<int> found;
            for (const PoiHit& h : FindNearestPois({&file}, lon0, lat0, radius, false))
                found.push_back(h.m_nIndex);
            EXPECT_EQ(found, expected) << radius << " at " << lon0 << ", " << lat0;
        }
    }
}

TEST(PoiNearest, NamesAreReadOnlyWhenAsked) {
    QTemporaryDir dir;
    // The names are read wherever the offsets say, whatever the format.
    writeFile(dir.filePath("p.ov2"), "xxxxxxxxxxxxxxx\nBahnhof\n");
    PoiFile file = fileOf({pointAt(1.0, 10.0, 16), pointAt(2.0, 10.0, 0)});
    file.m_strFolder = dir.path();
    const std::vector<PoiHit> without = FindNearestPois({&file}, kLon0, kLat0, "25 km", false);
    std::vector<PoiHit> with = FindNearestPois({&file}, kLon0, kLat0, "25 km", true);
    SortPoiHits(with, 1);
    ASSERT_EQ(with.size(), 2u);
    EXPECT_EQ(with[0].m_name, "Bahnhof");
    EXPECT_EQ(with[1].m_name, "") << "name offset 0";
    for (const PoiHit& h : without)
        EXPECT_TRUE(h.m_name.isEmpty());
}

TEST(PoiNearest, SortKeyColumnAndDirection) {
    const std::vector<PoiHit> hits = {hit(3.5, 200, "Bahnhof A"), hit(1.25, 10, "Kirche"),
                                      hit(7.0, 90, "Bahnhof B"), hit(2.0, 300, "Apotheke")};
    const struct {
        int key;
        std::vector<QByteArray> names;
    } cases[] = {
        {1, {"Kirche", "Apotheke", "Bahnhof A", "Bahnhof B"}},
        {-1, {"Bahnhof B", "Bahnhof A", "Apotheke", "Kirche"}},
        {2, {"Kirche", "Bahnhof B", "Bahnhof A", "Apotheke"}},
        {-2, {"Apotheke", "Bahnhof A", "Bahnhof B", "Kirche"}},
        // "Bahnhof A" and "Bahnhof B" are equal on four characters: they keep their order both ways.
        {3, {"Apotheke", "Bahnhof A", "Bahnhof B", "Kirche"}},
        {-3, {"Kirche", "Bahnhof A", "Bahnhof B", "Apotheke"}},
        {0, {"Bahnhof A", "Kirche", "Bahnhof B", "Apotheke"}},
    };
    for (const auto& c : cases) {
        std::vector<PoiHit> sorted = hits;
        SortPoiHits(sorted, c.key);
        std::vector<QByteArray> names;
        for (const PoiHit& h : sorted)
            names.push_back(h.m_name);
        EXPECT_EQ(names, c.names) << "key " << c.key;
    }
}
