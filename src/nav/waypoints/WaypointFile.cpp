#include "nav/waypoints/WaypointFile.h"

#include "nav/poi/PoiName.h"
#include "nav/waypoints/TextLines.h"
#include "settings/ValueText.h"

#include <QFile>

namespace {
constexpr qsizetype kLineBuffer = 4096;
}

Waypoints ReadWaypoints(QByteArrayView bytes) {
    Waypoints waypoints;
    forEachTextLine(bytes, kLineBuffer, [&](QByteArrayView line) {
        if (line.startsWith(';')) return;
        const QString text = PoiNameText(line.toByteArray());
        const QStringList fields = text.split(',');
        if (fields.size() <= 2) return;
        QString name = fields[2].trimmed();
        name.remove('"');
        waypoints.push_back({ValueText::wcstod(fields[0]), ValueText::wcstod(fields[1]), name});
    });
    return waypoints;
}

QByteArray WriteWaypoints(const Waypoints& waypoints) {
    QByteArray out;
    for (const Waypoint& w : waypoints) {
        out += QString::asprintf("%3.5f,%2.5f,\"", w.m_dLon, w.m_dLat).toLatin1();
        // A line break inside a name would start a record of its own.
        out += PoiNameBytes(QString(w.m_strName).replace('\n', ' ').replace('\r', ' '));
        out += "\"\n";
    }
    return out;
}

bool SameWaypoint(const Waypoint& a, const Waypoint& b) {
    return a.m_strName == b.m_strName &&
           WriteWaypoints({a}) == WriteWaypoints({{b.m_dLon, b.m_dLat, a.m_strName}});
}

Waypoints LoadWaypointFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return ReadWaypoints(file.readAll());
}

bool SaveWaypointFile(const QString& path, const Waypoints& waypoints) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    const QByteArray bytes = WriteWaypoints(waypoints);
    return file.write(bytes) == bytes.size();
}
