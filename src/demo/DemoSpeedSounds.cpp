#include "demo/DemoSpeedSounds.h"

#include "platform/ToneSynth.h"

#include <algorithm>

namespace {

constexpr int kSpeeds[] = {30, 50, 80, 100};
constexpr int kBeepMs = 110;
constexpr int kPauseMs = 70;
constexpr int kLowestHz = 660;
constexpr int kStepHz = 165;           // per band
constexpr uint16_t kAmplitude = 24000; // of 65535: clear, not harsh

} // namespace

std::span<const int> DemoSpeedSounds::speeds() {
    return kSpeeds;
}

QByteArray DemoSpeedSounds::wavOf(int speedKmh) {
    const auto found = std::find(std::begin(kSpeeds), std::end(kSpeeds), speedKmh);
    if (found == std::end(kSpeeds)) return {};
    const int band = static_cast<int>(found - std::begin(kSpeeds));
    QList<Tone> tones;
    for (int beep = 0; beep <= band; ++beep) {
        if (beep > 0) tones.append(Tone{0, kPauseMs});
        tones.append(Tone{kLowestHz + kStepHz * band, kBeepMs});
    }
    return ToneSynth::wavFile(ToneSynth::renderPcm16(tones, kAmplitude));
}
