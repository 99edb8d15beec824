#pragma once

#include "settings/CRegistryKey.h"
#include "settings/Setting.h"

#include <cstdint>

// The settings of the POI files under SOFTWARE\Omvale\Fendix, declared once.
namespace PoiSettings {
inline constexpr Setting<const char*> kPoiPath{"PoiPath", "\\POI", false}; // the POI folder
// Edge of the icons in pixels; 0 = each icon at its own size.
inline constexpr Setting<uint8_t> kPOISize{"POISize", 0, false};
// The map hides its POIs while it is turned to the course or tilted into perspective.
inline constexpr Setting<bool> kHidePOIByDiag{"HidePOIByDiag", false, false};
// The map writes POI names in a small font.
inline constexpr Setting<bool> kSmallFont{"Small Font", false, false};
// One flag a POI file, named by the file name: whether the file is enabled.
inline const QString kFilesKey = QString::fromLatin1(CRegistryKey::kSettingsPath) + QLatin1String("\\POI");
} // namespace PoiSettings
