#pragma once

#include <QByteArray>
#include <QString>

class DeviceRoot;

// The default alert files "\windows\Infend.wav", "\windows\Infbeg.wav" and "\windows\Lowbatt.wav",
// made by this program: short tone sequences that tell the three alerts apart by ear.
namespace DefaultAlertSounds {
// The WAV bytes of the default file named by its system path (one of the three), else empty.
QByteArray wavOf(const QString& systemPath);
// Writes each default file that does not exist yet into the device root; never overwrites. Run at
// start-up. Returns false when a missing file could not be written (the alert then plays nothing).
bool install(const DeviceRoot& root);
} // namespace DefaultAlertSounds
