#include "maps/MapSettings.h"

#include "settings/CRegistryKey.h"

QString MapSettings::KeyPath(int instance) {
    const QString root = QString::fromLatin1(CRegistryKey::kSettingsPath);
    return instance >= 1 ? QStringLiteral("%1\\Map%2").arg(root).arg(instance) : root;
}

int32_t MapSettings::PerspectiveDefault(int screenWidth, int screenHeight) {
    return int64_t(screenWidth) * screenHeight > 100000 ? 500 : kPerspective.m_default;
}
