#include "maps/MapSettings.h"

#include "settings/CRegistryKey.h"

QString MapSettings::KeyPath(int instance) {
    const QString root = QString::fromLatin1(CRegistryKey::kSettingsPath);
    return instance >= 1 ? QStringLiteral("%1\\Map%2").arg(root).arg(instance) : root;
}
