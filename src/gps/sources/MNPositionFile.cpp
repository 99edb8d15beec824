#include "gps/sources/MNPositionFile.h"

#include "platform/DeviceRoot.h"
#include "settings/CIniFile.h"

#include <QFile>
#include <utility>

namespace {

// The corners of the navigation program's map, in section "MapCoordinates".
constexpr std::pair<const char*, double MNPosition::*> kMapCorners[] = {
    {"LonTopLeft", &MNPosition::m_dLonTopLeft},         {"LatTopLeft", &MNPosition::m_dLatTopLeft},
    {"LonTopRight", &MNPosition::m_dLonTopRight},       {"LatTopRight", &MNPosition::m_dLatTopRight},
    {"LonBottomRight", &MNPosition::m_dLonBottomRight}, {"LatBottomRight", &MNPosition::m_dLatBottomRight},
};

} // namespace

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
    for (const auto& [key, member] : kMapCorners)
        ini.ReadDouble(QStringLiteral("MapCoordinates"), QString::fromLatin1(key), position.*member);
    ini.ReadInt(QStringLiteral("LastClick"), QStringLiteral("Lon"), position.m_nClickLon);
    ini.ReadInt(QStringLiteral("LastClick"), QStringLiteral("Lat"), position.m_nClickLat);
    return position;
}

bool MNPositionFile::read(const DeviceRoot& root, MNPosition& position) {
    QFile file(root.hostPath(QString::fromLatin1(kPath)));
    if (!file.open(QIODevice::ReadOnly)) return false;
    position = parse(file.readAll());
    return true;
}
