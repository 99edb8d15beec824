#include "nav/goto/WaypointFilePath.h"

#include "nav/goto/GoToSettings.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"

QString WaypointFilePath(const DeviceRoot& root) {
    CRegistryKey key;
    QString path = readSetting(key, GoToSettings::kWaypoints);
    if (path.isEmpty()) {
        path = QString::fromLatin1(GoToSettings::kDefaultWaypointFile);
        writeSetting(key, GoToSettings::kWaypoints, path);
    }
    return root.hostPath(path);
}

void StoreWaypointFilePath(const QString& hostPath) {
    CRegistryKey key;
    writeSetting(key, GoToSettings::kWaypoints, hostPath);
}

bool VantrelSimulationOn() {
    CRegistryKey key(QString::fromLatin1(GoToSettings::kVantrelKey), RegistryRoot::LocalMachine);
    return readSetting(key, GoToSettings::kSimulate);
}
