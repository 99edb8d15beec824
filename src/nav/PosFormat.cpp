#include "nav/PosFormat.h"

#include "nav/NavSettings.h"
#include "settings/CRegistryKey.h"

QStringList posFormatNames() {
    return {QStringLiteral("dd°mm.mmm"), QStringLiteral("dd°mm'ss''"), QStringLiteral("dd.dddddd"),
            QStringLiteral("UTM"),       QStringLiteral("MGRS"),       QStringLiteral("Falk/MarcoPolo")};
}

PosFormat readPosFormat() {
    CRegistryKey key;
    const int32_t stored = readSetting(key, NavSettings::kPosFormat);
    if (stored < 0 || stored >= posFormatNames().size()) return PosFormat::DegreesMinutes;
    return static_cast<PosFormat>(stored);
}
