#include "integrations/navbridge/RouteAdvance.h"

#include "nav/GeoSphere.h"
#include "settings/DevLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
constexpr int kLonField = 10, kLatField = 11; // after ten fields marked "-"
} // namespace

QList<GeoPosition> RouteAdvance::parse(const QByteArray& bytes) {
    QList<GeoPosition> points;
    for (const QByteArray& line : bytes.split('\n')) {
        const QList<QByteArray> fields = line.trimmed().split('|');
        if (fields.size() <= kLatField) continue;
        bool bLon = false, bLat = false;
        const double lon = fields[kLonField].toDouble(&bLon), lat = fields[kLatField].toDouble(&bLat);
        if (bLon && bLat) points.append(GeoPosition{lat, lon});
    }
    return points;
}

bool RouteAdvance::Load(const QString& navProgramFolder) {
    m_points.clear();
    m_nCurrent = 0;
    const QDir routes(QDir(m_root.hostPath(navProgramFolder)).filePath(QStringLiteral("Routes")));
    const QFileInfoList files = routes.entryInfoList({QStringLiteral("*.rte")}, QDir::Files, QDir::Time);
    if (files.isEmpty()) return false;
    const QFileInfo& newest = files.first();
    const int64_t ageSeconds = m_clock.utcNow() - newest.lastModified().toSecsSinceEpoch();
    const QByteArray name = newest.fileName().toLocal8Bit();
    if (ageSeconds > int64_t(kMaxAgeHours) * 3600) {
        devLog("%s is too old", name.constData());
        return false;
    }
    devLog("Read File %s (%d hour old)", name.constData(), int(std::max<int64_t>(0, ageSeconds) / 3600));
    QFile file(newest.filePath());
    if (!file.open(QIODevice::ReadOnly)) return false;
    m_points = parse(file.readAll());
    return !m_points.isEmpty();
}

std::optional<GeoPosition> RouteAdvance::Tick(const GeoPosition& position, int radiusMetres, int& nId) {
    const double radiusKm = (radiusMetres > 0 ? radiusMetres : kDefaultRadiusMetres) / 1000.0;
    for (int i = m_nCurrent; i < m_points.size(); ++i) {
        const GeoPosition& point = m_points[i];
        if (GeoDistance(position.m_dPosLong, position.m_dPosLat, point.m_dPosLong, point.m_dPosLat) >
            radiusKm)
            continue;
        m_nCurrent = i + 1;
        if (m_nCurrent >= m_points.size()) return std::nullopt; // the end of the route
        nId = m_nCurrent;
        devLog("ID %d starts MNNextTarget. %d IDs left.", nId, int(m_points.size()) - nId - 1);
        return m_points[m_nCurrent];
    }
    return std::nullopt;
}
