#pragma once

#include <optional>
#include <utility>

// How the tuner picks its station, stored as "TMC_Control" and offered in this order in the menu.
namespace TmcModes {
inline constexpr int kOff = 0;
inline constexpr int kNoControl = 1;
inline constexpr int kAutomaticWithTmc = 4;
inline constexpr int kManual = 5;
inline constexpr int kCount = 6;

struct Mode {
    const char* menuText; // UTF-8
    // GpsTmc_ControlTuner's arguments once the hardware is ready; none for "off" and manual tuning.
    std::optional<std::pair<int, int>> tunerCommand;
};

inline constexpr Mode kModes[kCount] = {
    {"TMC Off", std::nullopt},
    {"Keine Sendersteuerung", std::pair{0, 0}},
    {"GNS Senderkontolle", std::pair{79, 0}},
    {"Automatisch Sender", std::pair{32, 0}},
    {"Automatisch Sender mit TMC", std::pair{64, 0}},
    {"Manuelle Senderwahl", std::nullopt},
};

inline bool isValid(int mode) {
    return mode >= 0 && mode < kCount;
}
} // namespace TmcModes
