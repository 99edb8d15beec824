#pragma once

#include <QByteArray>
#include <QString>

class CRegistryKey;
class DeviceRoot;

// Where a recorded sound ("Sound aufnehmen") is kept so that the alerts or the speed table take it
// up: an alert's own file, or "<n>.wav" in "SpeedWaves" for a speed band.
namespace RecordedSoundFile {

// The host path of the speed band's file, the name the speed table looks for; empty outside
// 0..399 km/h.
QString speedBand(int speedKmh, CRegistryKey& key, const DeviceRoot& root);

// Writes 16-bit mono samples at `rate` as a WAV file, its folder made when missing; empty text on
// success, else one line for the user.
QString save(const QString& hostPath, const QByteArray& samples, int rate);

} // namespace RecordedSoundFile
