#include "gps/sources/SourceSettings.h"

#include "settings/CRegistryKey.h"

QString SourceSettings::portDeviceValueName(int port) {
    return QStringLiteral("COM%1Device").arg(port);
}

QString readPortDevice(CRegistryKey& key, int port) {
    QString device = QString::fromLatin1(SourceSettings::kPortDevices[port]);
    key.ReadString(SourceSettings::portDeviceValueName(port), device);
    return device;
}
