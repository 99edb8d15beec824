#include "demo/DemoWorld.h"

#include "demo/DemoRoute.h"

#include <cmath>
#include <initializer_list>

namespace {

using Kind = DemoFeature::Kind;
using LabelKind = DemoLabel::Kind;

struct Metres {
    double east, north; // from the start of the drive
};

GeoPosition at(Metres m) {
    return offsetBy(demoRoute().m_start, m.east, m.north);
}

std::vector<GeoPosition> outline(std::initializer_list<Metres> points) {
    std::vector<GeoPosition> positions;
    for (const Metres& m : points)
        positions.push_back(at(m));
    return positions;
}

// A rounded shape of radii `rx` by `ry` around `centre`, irregular as a lake shore or a forest's
// edge is; `ragged` sets how irregular.
std::vector<GeoPosition> blob(Metres centre, double rx, double ry, double ragged, int seed) {
    std::vector<GeoPosition> positions;
    for (int step = 0; step < 72; ++step) {
        const double angle = step * 2 * M_PI / 72;
        const double wobble =
            1.0 + ragged * (0.6 * std::sin(3 * angle + seed) + 0.3 * std::cos(5 * angle + 2 * seed) +
                            0.2 * std::sin(11 * angle + seed));
        positions.push_back(
            at({centre.east + rx * wobble * std::cos(angle), centre.north + ry * wobble * std::sin(angle)}));
    }
    return positions;
}

// Town streets: a grid every `spacing` metres over the rectangle, left to the town's outline to clip.
void addStreetGrid(std::vector<DemoFeature>& features, Metres from, Metres to, double spacing,
                   double turnDeg) {
    const double c = std::cos(turnDeg * M_PI / 180), s = std::sin(turnDeg * M_PI / 180);
    const Metres mid{(from.east + to.east) / 2, (from.north + to.north) / 2};
    const auto turned = [&](double e, double n) {
        return Metres{mid.east + e * c - n * s, mid.north + e * s + n * c};
    };
    const double halfE = (to.east - from.east) / 2, halfN = (to.north - from.north) / 2;
    for (double e = -halfE; e <= halfE; e += spacing)
        features.push_back({Kind::Street, outline({turned(e, -halfN), turned(e, halfN)})});
    for (double n = -halfN; n <= halfN; n += spacing)
        features.push_back({Kind::Street, outline({turned(-halfE, n), turned(halfE, n)})});
}

} // namespace

DemoWorld demoWorld() {
    DemoWorld world;
    std::vector<DemoFeature>& f = world.m_features;
    f.push_back({Kind::Forest, blob({3900, -5800}, 1100, 1500, 0.18, 1)});
    f.push_back({Kind::Forest, blob({1900, -10200}, 2700, 1000, 0.15, 2)});
    f.push_back({Kind::Forest, blob({-3800, 1000}, 1300, 1100, 0.2, 3)});
    f.push_back({Kind::Forest, blob({6700, -13700}, 1200, 1500, 0.2, 4)});
    f.push_back({Kind::Forest, blob({-5200, -11800}, 1600, 1200, 0.22, 5)});
    f.push_back({Kind::Forest, blob({-900, -5600}, 500, 700, 0.25, 6)});
    f.push_back({Kind::Town, outline({{-700, 600},
                                      {900, 900},
                                      {1900, 300},
                                      {2300, -1200},
                                      {2100, -2500},
                                      {1200, -2750},
                                      {200, -1900},
                                      {-900, -700}})});
    f.push_back({Kind::Town, outline({{3500, -8200}, {4700, -8100}, {4900, -8900}, {3700, -9000}})});
    f.push_back({Kind::Town, outline({{1400, -14500},
                                      {3300, -14300},
                                      {4300, -15400},
                                      {4000, -17100},
                                      {2200, -17400},
                                      {1200, -16200}})});
    addStreetGrid(f, {-600, -2500}, {2200, 700}, 310, 8);
    addStreetGrid(f, {1300, -17200}, {4100, -14500}, 260, -12);
    f.push_back({Kind::River, outline({{-1800, 4000},
                                       {-1200, 1500},
                                       {-300, -200},
                                       {-700, -2200},
                                       {-200, -4200},
                                       {700, -6500},
                                       {300, -8800},
                                       {1000, -12500},
                                       {600, -15500},
                                       {900, -19000}})});
    f.push_back({Kind::Water, blob({-250, -1150}, 230, 140, 0.08, 7)});
    f.push_back({Kind::Water, blob({-2600, -6900}, 950, 620, 0.1, 8)});
    f.push_back({Kind::Railway, outline({{-6000, 2600},
                                         {-1500, 600},
                                         {500, -300},
                                         {2800, -2600},
                                         {5200, -6500},
                                         {7000, -12000},
                                         {4200, -16000},
                                         {4000, -20000}})});
    f.push_back({Kind::Road, outline({{200, -1200}, {-2500, -2600}, {-5200, -3300}, {-8000, -4200}})});
    f.push_back({Kind::Road, outline({{2258, -8300}, {3600, -8500}, {4300, -8600}, {7500, -9500}})});
    f.push_back({Kind::Road, outline({{2000, -16000}, {-1500, -15500}, {-6000, -16800}})});
    f.push_back({Kind::Road, outline({{1700, 0}, {3000, 2500}, {4000, 5000}})});
    f.push_back({Kind::Road, outline({{-2600, -7700}, {-500, -7900}, {2250, -7600}})});

    world.m_labels = {
        {LabelKind::Town, at({700, -800}), QStringLiteral("Leutkirch im Allgäu")},
        {LabelKind::Town, at({2800, -15900}), QStringLiteral("Isny im Allgäu")},
        {LabelKind::Village, at({4200, -8600}), QStringLiteral("Bergweiler")},
        {LabelKind::Water, at({-2600, -6900}), QStringLiteral("Schwarzsee")},
        {LabelKind::Water, at({-250, -1150}), QStringLiteral("Stadtweiher")},
        {LabelKind::Water, at({-300, -4200}), QStringLiteral("Eschach")},
        {LabelKind::Forest, at({3800, -5600}), QStringLiteral("Ochsenwald")},
        {LabelKind::Forest, at({1000, -10300}), QStringLiteral("Kuhberg")},
        {LabelKind::Forest, at({-5200, -11800}), QStringLiteral("Eschacher Wald")},
        {LabelKind::Street, at({500, -420}), QStringLiteral("Marktstraße")},
        {LabelKind::Street, at({1300, -1300}), QStringLiteral("Kemptener Straße")},
        {LabelKind::Street, at({1650, -2300}), QStringLiteral("Isnyer Straße")},
        {LabelKind::RoadNumber, at({2300, -6000}), QStringLiteral("L 318")},
        {LabelKind::RoadNumber, at({2300, -12800}), QStringLiteral("L 318")},
        {LabelKind::RoadNumber, at({-3500, -2900}), QStringLiteral("K 8001")},
    };

    const RoutePath path(demoRoute());
    for (double s = 0; s <= path.lengthM(); s += 10) {
        const bool tunnel = path.legAt(s).m_bTunnel;
        if (world.m_route.empty() || world.m_route.back().m_bTunnel != tunnel) {
            world.m_route.push_back({tunnel, {}});
            if (world.m_route.size() > 1) world.m_route.back().m_points.push_back(path.positionAt(s - 10));
        }
        world.m_route.back().m_points.push_back(path.positionAt(s));
    }
    return world;
}
