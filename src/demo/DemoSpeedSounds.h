#pragma once

#include <QByteArray>
#include <span>

// The demo's speed sounds "30.wav", "50.wav", "80.wav" and "100.wav": one short beep for the
// lowest band up to four for the highest, each band a little higher in pitch, so a driver hears
// the band without looking.
namespace DemoSpeedSounds {
// km/h, ascending.
std::span<const int> speeds();
// The WAV file of one of speeds(); empty for any other speed.
QByteArray wavOf(int speedKmh);
} // namespace DemoSpeedSounds
