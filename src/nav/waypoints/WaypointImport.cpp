#include "nav/waypoints/WaypointImport.h"

#include "nav/CoordinateText.h"
#include "nav/poi/PoiName.h"
#include "nav/waypoints/TextLines.h"

#include <algorithm>

namespace {

constexpr qsizetype kLineBuffer = 4096;

bool isDigit(QChar c) {
    return c >= '0' && c <= '9';
}

bool startsToken(const QString& line, qsizetype i) {
    return i + 2 < line.size() && (line[i + 1] == ' ' || isDigit(line[i + 1])) && isDigit(line[i + 2]);
}

bool continuesToken(QChar c) {
    static const QString marks = QStringLiteral("°'`\u00B4\u2019\uFFB4.,");
    return isDigit(c) || c == ' ' || marks.contains(c);
}

} // namespace

std::optional<Waypoint> ScanImportLine(const QString& line) {
    if (line.isEmpty() || line.startsWith(';')) return std::nullopt;
    double lat = 0, lon = 0;
    int found = 0;
    QString name;
    qsizetype i = 0;
    while (i < line.size()) {
        const QChar c = line[i];
        const bool latitude = c == 'N' || c == 'S';
        const bool longitude = c == 'O' || c == 'W' || c == 'E';
        if ((latitude || longitude) && startsToken(line, i)) {
            qsizetype end = i + 1;
            while (end < line.size() && continuesToken(line[end]))
                ++end;
            // ParseCoordinate knows E, not the German O.
            const QString token =
                (c == 'O' ? QStringLiteral("E") : QString(c)) + line.mid(i + 1, end - i - 1);
            double value = 0;
            if (ParseCoordinate(token, value)) {
                (latitude ? lat : lon) = value;
                found |= latitude ? 1 : 2;
                i = end;
                continue;
            }
        }
        name += c;
        ++i;
    }
    if (found != 3) return std::nullopt;
    name = name.trimmed();
    name.remove('"');
    return Waypoint{lon, lat, name};
}

Waypoints ImportWaypoints(QByteArrayView bytes, Waypoints& waypoints) {
    Waypoints scanned;
    forEachTextLine(bytes, kLineBuffer, [&](QByteArrayView line) {
        if (const auto waypoint = ScanImportLine(PoiNameText(line.toByteArray())))
            scanned.push_back(*waypoint);
    });
    return MergeWaypoints(scanned, waypoints);
}

Waypoints MergeWaypoints(const Waypoints& incoming, Waypoints& waypoints) {
    Waypoints added;
    for (const Waypoint& w : incoming) {
        if (std::ranges::any_of(waypoints, [&w](const Waypoint& held) { return SameWaypoint(held, w); }))
            continue;
        waypoints.push_back(w);
        added.push_back(w);
    }
    return added;
}
