#pragma once

#include <QString>

// The battery charge as the handheld's power status gave it: percent 0..100, or
// kUnknownBatteryPercent when there is no battery or its state cannot be read.
inline constexpr int kUnknownBatteryPercent = 255;

// Reads the "capacity" of the first power supply of type "Battery" under `powerSupplyFolder`
// (the kernel's /sys/class/power_supply, a test's own folder otherwise), in name order.
int readBatteryPercent(const QString& powerSupplyFolder = QStringLiteral("/sys/class/power_supply"));
