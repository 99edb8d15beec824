#include "integrations/navbridge/MobileNavigatorFiles.h"

#include "settings/CIniFile.h"

namespace MobileNavigatorFiles {

QByteArray routePoints(double lon, double lat, const QString& name) {
    CIniFile ini; // created anew: whatever the file held before is not read
    ini.WriteString(QStringLiteral("DestList"), QStringLiteral("0"),
                    QString::asprintf("2|%02.6f|%02.6f|", lon, lat) + name +
                        QStringLiteral("|Tarvik Ziel|||||<UDD>|"));
    return ini.ToBytes();
}

QString routeLine(double lon, double lat) {
    return QString::asprintf("-|-|-|-|-|-|-|-|-|-|%.5f|%.5f|-|", lon, lat);
}

QByteArray routeFile(const QList<Point>& points) {
    QByteArray bytes;
    for (const Point& point : points)
        bytes += routeLine(point.lon, point.lat).toUtf8() + '\n';
    return bytes;
}

} // namespace MobileNavigatorFiles
