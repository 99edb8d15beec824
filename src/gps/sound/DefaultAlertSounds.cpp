#include "gps/sound/DefaultAlertSounds.h"

#include "gps/sound/SoundSettings.h"
#include "platform/DeviceRoot.h"
#include "platform/ToneSynth.h"
#include "settings/DevLog.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

struct DefaultSound {
    const char* pszSystemPath;
    QList<Tone> tones;
};

constexpr uint16_t kAmplitude = 26000; // about -8 dB full scale: clear, not harsh

// Falling for the lost fix, rising for its return, a low double knock for the silent receiver.
const DefaultSound kDefaults[] = {
    {SoundSettings::kNoFixSoundWav.m_default, {{1319, 140}, {0, 40}, {988, 140}, {0, 40}, {659, 260}}},
    {SoundSettings::kSignalSoundWav.m_default, {{659, 140}, {0, 40}, {988, 140}, {0, 40}, {1319, 260}}},
    {SoundSettings::kNoDataSoundWav.m_default, {{440, 180}, {0, 120}, {440, 180}, {0, 120}, {330, 400}}},
};

} // namespace

QByteArray DefaultAlertSounds::wavOf(const QString& systemPath) {
    for (const DefaultSound& sound : kDefaults)
        if (systemPath == QLatin1String(sound.pszSystemPath))
            return ToneSynth::wavFile(ToneSynth::renderPcm16(sound.tones, kAmplitude));
    return {};
}

bool DefaultAlertSounds::install(const DeviceRoot& root) {
    bool bAllThere = true;
    for (const DefaultSound& sound : kDefaults) {
        const QString path = root.hostPath(QLatin1String(sound.pszSystemPath));
        if (QFileInfo::exists(path)) continue;
        QSaveFile file(path);
        const bool bWritten = QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
                              file.write(wavOf(QLatin1String(sound.pszSystemPath))) >= 0 && file.commit();
        if (!bWritten) {
            devLog("!!!! cannot write the alert sound %s", qPrintable(path));
            bAllThere = false;
        }
    }
    return bAllThere;
}
