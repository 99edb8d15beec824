#pragma once

#include "gps/sources/SourceTable.h"
#include "settings/Setting.h"

// The settings of the GPS sources under SOFTWARE\Omvale\Fendix, declared once.
namespace SourceSettings {
inline constexpr Setting<const char*> kSource{"Source", "", false};             // a name of SourceTable
inline constexpr Setting<const char*> kSpeed{"Speed", "4800", false};           // baud rate, decimal text
inline constexpr Setting<const char*> kFile{"File", "", false};                 // for "Datei" and "Simulate"
inline constexpr Setting<int32_t> kSimulationSpeed{"SimulationSpeed", 1, true}; // replay factor
inline constexpr Setting<bool> kMnPriority{"MN Priority", false, false};
// Seconds without data before the source is restarted; 0 switches the restart off.
inline constexpr Setting<int32_t> kAutoReconnect{"AutoReconnect", 5, false};
// Take "$GN", "$GL", "$GA", "$GB", "$IN" fix sentences as "$GP" (see TalkerRewrite.h).
inline constexpr Setting<bool> kAcceptAllTalkers{"AcceptAllTalkers", false, false};
inline constexpr Setting<const char*> kGpsdHost{"GpsdHost", "localhost:2947", false};
inline constexpr Setting<const char*> kNmeaTcpHost{"NmeaTcpHost", "localhost:10110", false};

// The device path of each serial port "COM0".."COM9"; the defaults fit common USB receivers (COM1,
// the fallback source, is the first USB serial adapter).
inline constexpr Setting<const char*> kPortDevices[SourceTable::kSerialPorts] = {
    {"COM0Device", "/dev/ttyACM0", false}, {"COM1Device", "/dev/ttyUSB0", false},
    {"COM2Device", "/dev/ttyUSB1", false}, {"COM3Device", "/dev/ttyS0", false},
    {"COM4Device", "/dev/ttyS1", false},   {"COM5Device", "/dev/ttyACM1", false},
    {"COM6Device", "/dev/rfcomm0", false}, {"COM7Device", "/dev/ttyUSB2", false},
    {"COM8Device", "/dev/ttyUSB3", false}, {"COM9Device", "/dev/serial0", false},
};
} // namespace SourceSettings
