#include "gps/sources/SourceSettings.h"

#include "shell/settings/CRegistryKey.h"

QString SourceSettings::portDeviceValueName(int port) {
    return QStringLiteral("COM%1Device").arg(port);
}

QString readSetting(CRegistryKey& key, const GpsSetting<const char*>& setting) {
    const QString name = QString::fromLatin1(setting.pszName);
    QString value = QString::fromLatin1(setting.defaultValue);
    if (!key.ReadString(name, value) && setting.bWriteBack) key.WriteString(name, value);
    return value;
}

QString readPortDevice(CRegistryKey& key, int port) {
    QString device = QString::fromLatin1(SourceSettings::kPortDevices[port]);
    key.ReadString(SourceSettings::portDeviceValueName(port), device);
    return device;
}
