#pragma once

#include "nav/goto/GoToSettings.h"
#include "settings/Setting.h"

// The settings of sharing the receiver, under the splitter's own key HKLM Drivers\BuiltIn\Vantrel
// (GoToSettings::kVantrelKey), declared once.
namespace ShareSettings {
enum TcpMode : int32_t { kTcpOff = 0, kTcpLoopback = 1, kTcpAllInterfaces = 2 };

inline constexpr Setting<bool> kShare{"Share", false, false};
// The stable path of the shared pseudo-terminal, in the device root; empty: no terminal.
inline constexpr Setting<const char*> kPortLink{"PortLink", "\\dev\\gps0", false};
inline constexpr Setting<int32_t> kTcpMode{"TcpMode", kTcpLoopback, false};
inline constexpr Setting<int32_t> kTcpPort{"TcpPort", 10110, false};
// km/h of the simulated drive towards a simulation target.
inline constexpr Setting<int32_t> kSimulationSpeed{"SimulationSpeed", 50, false};
} // namespace ShareSettings
