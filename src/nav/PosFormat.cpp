#include "nav/PosFormat.h"

#include "nav/NavSettings.h"

QStringList PosFormatNames() {
    return {QStringLiteral("dd°mm.mmm"), QStringLiteral("dd°mm'ss''"), QStringLiteral("dd.dddddd"),
            QStringLiteral("UTM"),       QStringLiteral("MGRS"),       QStringLiteral("Falk/MarcoPolo")};
}

PosFormat ReadPosFormat() {
    const uint32_t stored = ReadNavSetting(NavSettings::PosFormat);
    if (stored >= static_cast<uint32_t>(PosFormatNames().size())) return PosFormat::DegreesMinutes;
    return static_cast<PosFormat>(stored);
}
