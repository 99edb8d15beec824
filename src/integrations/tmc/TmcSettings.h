#pragma once

#include "settings/Setting.h"

#include <cstdint>

// The settings of the TMC receiver under SOFTWARE\Omvale\Fendix, declared once.
namespace TmcSettings {
inline constexpr Setting<uint8_t> kControl{"TMC_Control", 0, false}; // a mode of TmcModes
// Where the receiver library is loaded from; a bare name searches the library path.
inline constexpr Setting<const char*> kLibrary{"TmcLibrary", "libgpstmc.so", false};
inline constexpr Setting<int32_t> kAutoTmc{"Auto TMC", 0, false}; // minutes between station searches; 0 = off
} // namespace TmcSettings

// The splitter driver's second port: when it names a port, the receiver library is started there and
// the document's own port is given to it as the alternate GPS port.
namespace TmcSplitterPort {
inline constexpr const char* kKey = "Drivers\\BuiltIn\\Vantrel2"; // local machine
inline constexpr const char* kIndex = "Index";
} // namespace TmcSplitterPort
