#include "integrations/navbridge/NavProgramLocation.h"

#include "integrations/navbridge/NavBridgeSettings.h"
#include "settings/CRegistryKey.h"

QString navProgramPath() {
    CRegistryKey settings;
    QString path = readSetting(settings, NavBridgeSettings::kProgram);
    if (path.isEmpty()) {
        CRegistryKey install(QString::fromLatin1(NavBridgeSettings::kInstallKey), RegistryRoot::LocalMachine);
        if (install.ReadString(QString::fromLatin1(NavBridgeSettings::kInstallDir), path) && !path.isEmpty())
            path += QLatin1Char('\\');
    }
    return path.replace(QLatin1Char('/'), QLatin1Char('\\'));
}

QString navProgramFolder(const QString& programPath) {
    return programPath.left(programPath.lastIndexOf(QLatin1Char('\\')) + 1);
}
