#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// The destination files that MobileNavigator reads from its own folder.
namespace MobileNavigatorFiles {
inline constexpr const char* kRoutePoints = "Routenpunkte.ini";
inline constexpr const char* kRouteFile = "Routes\\ Tarvik.rte"; // the blank after "\" belongs to the name

// "Routenpunkte.ini": section "DestList", the single entry "0" = "2|lon|lat|name|Tarvik Ziel|||||<UDD>|".
QByteArray routePoints(double lon, double lat, const QString& name);
// One line of a route file: ten "-" fields, longitude and latitude with five decimals, one more "-".
QString routeLine(double lon, double lat);

struct Point {
    double lon;
    double lat;
};
// The route file from the "DestList" entries, one line a point.
QByteArray routeFile(const QList<Point>& points);
} // namespace MobileNavigatorFiles
