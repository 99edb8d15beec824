#include "gps/sources/MNPositionFile.h"

#include "platform/DeviceRoot.h"
#include "shell/settings/CIniFile.h"

#include <QFile>

MNPosition MNPositionFile::parse(const QByteArray& bytes) {
    CIniFile ini;
    ini.LoadFromBytes(bytes);
    MNPosition position;
    const QString gps = QStringLiteral("GPSPosition");
    ini.ReadDouble(gps, QStringLiteral("Lon"), position.m_dLon);
    ini.ReadDouble(gps, QStringLiteral("Lat"), position.m_dLat);
    ini.ReadFloat(gps, QStringLiteral("Speed"), position.m_fSpeed);
    ini.ReadFloat(gps, QStringLiteral("Course"), position.m_fCourse);
    ini.ReadInt(gps, QStringLiteral("Valid"), position.m_nValid);
    const QString map = QStringLiteral("MapCoordinates");
    ini.ReadDouble(map, QStringLiteral("LonTopLeft"), position.m_dLonTopLeft);
    ini.ReadDouble(map, QStringLiteral("LatTopLeft"), position.m_dLatTopLeft);
    ini.ReadDouble(map, QStringLiteral("LonTopRight"), position.m_dLonTopRight);
    ini.ReadDouble(map, QStringLiteral("LatTopRight"), position.m_dLatTopRight);
    ini.ReadDouble(map, QStringLiteral("LonBottomRight"), position.m_dLonBottomRight);
    ini.ReadDouble(map, QStringLiteral("LatBottomRight"), position.m_dLatBottomRight);
    return position;
}

bool MNPositionFile::read(const DeviceRoot& root, MNPosition& position) {
    QFile file(root.hostPath(QString::fromLatin1(kPath)));
    if (!file.open(QIODevice::ReadOnly)) return false;
    position = parse(file.readAll());
    return true;
}
