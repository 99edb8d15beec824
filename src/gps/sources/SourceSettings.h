#pragma once

#include "gps/GpsSettings.h"

#include <QString>

// The settings of the GPS sources under SOFTWARE\Omvale\Fendix, declared once.
namespace SourceSettings {
inline constexpr GpsSetting<const char*> kSource{"Source", "", false};   // a name of SourceTable
inline constexpr GpsSetting<const char*> kSpeed{"Speed", "4800", false}; // baud rate, decimal text
inline constexpr GpsSetting<const char*> kFile{"File", "", false};       // for "Datei" and "Simulate"
inline constexpr GpsSetting<int32_t> kSimulationSpeed{"SimulationSpeed", 1, true}; // replay factor
inline constexpr GpsSetting<bool> kMnPriority{"MN Priority", false, false};
// Seconds without data before the source is restarted; 0 switches the restart off.
inline constexpr GpsSetting<int32_t> kAutoReconnect{"AutoReconnect", 5, false};
// Take "$GN", "$GL", "$GA", "$GB" fix sentences as "$GP" (see TalkerRewrite.h).
inline constexpr GpsSetting<bool> kAcceptAllTalkers{"AcceptAllTalkers", false, false};
inline constexpr GpsSetting<const char*> kGpsdHost{"GpsdHost", "localhost:2947", false};
inline constexpr GpsSetting<const char*> kNmeaTcpHost{"NmeaTcpHost", "localhost:10110", false};

// The device path of each serial port "COM0".."COM9", in the value "COM<n>Device"; the defaults
// fit common USB receivers (COM1, the fallback source, is the first USB serial adapter).
inline constexpr const char* kPortDevices[10] = {
    "/dev/ttyACM0", "/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyS0",   "/dev/ttyS1",
    "/dev/ttyACM1", "/dev/rfcomm0", "/dev/ttyUSB2", "/dev/ttyUSB3", "/dev/serial0",
};
QString portDeviceValueName(int port); // "COM1Device"
} // namespace SourceSettings

// The device path of serial port `port` (0..9).
QString readPortDevice(CRegistryKey& key, int port);
