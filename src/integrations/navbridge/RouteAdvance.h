#pragma once

#include "nav/GeoPosition.h"
#include "platform/DeviceClock.h"
#include "platform/DeviceRoot.h"

#include <QList>
#include <QString>
#include <optional>

// "MNMNextWP": the automatic advance along a route of the navigation program. The route is the
// newest "Routes\*.rte" in the navigation program's folder ("Routes\ Tarvik.rte" among them), one
// point a line "-|-|-|-|-|-|-|-|-|-|LON|LAT|-|"; a file older than kMaxAgeHours is a finished trip
// and not read. While driving, reaching a point (within the radius "MNMNextWPRadius") hands the point
// after it to the navigation program; a point left out on the way counts as passed once a later one
// is reached. After the last point nothing more is handed over.
class RouteAdvance {
public:
    static constexpr int kMaxAgeHours = 24;
    static constexpr int kDefaultRadiusMetres = 100; // "MNMNextWPRadius" 0 or below

    RouteAdvance(const DeviceRoot& root, const DeviceClock& clock) : m_root(root), m_clock(clock) {}

    // Reads the newest route file below the navigation program's folder (a system path); false when
    // there is none, it is too old, or it holds no point. The first point is the one driven to.
    bool Load(const QString& navProgramFolder);
    // The next point to hand over when `position` reached the current one (or a later one); nothing
    // otherwise. Its ID (0 for the first point of the file) goes to `nId`.
    std::optional<GeoPosition> Tick(const GeoPosition& position, int radiusMetres, int& nId);

    const QList<GeoPosition>& Points() const { return m_points; }
    int CurrentId() const { return m_nCurrent; }

    // The points of a route file; lines without two numbers in the longitude and latitude fields are
    // skipped.
    static QList<GeoPosition> parse(const QByteArray& bytes);

private:
    DeviceRoot m_root;
    const DeviceClock& m_clock;
    QList<GeoPosition> m_points;
    int m_nCurrent = 0;
};
