#include "gps/sound/SpeedSoundTable.h"

#include "gps/sound/SoundSettings.h"
#include "gps/sources/SourceSettings.h"
#include "platform/DeviceRoot.h"

#include <QFileInfo>
#include <algorithm>

void SpeedSoundTable::load(CRegistryKey& key, const DeviceRoot& root) {
    const bool bOn = readSetting(key, SoundSettings::kPlaySpeedSound);
    scan(readSetting(key, SoundSettings::kSpeedWaves), root);
    if (!bOn) m_speeds.clear();
}

void SpeedSoundTable::scan(const QString& directory, const DeviceRoot& root) {
    m_strDirectory = root.hostPath(directory);
    m_speeds.clear();
    m_nLastPlayed = -1;
    for (int speed = 0; speed <= kMaxSpeedKmh; ++speed)
        if (QFileInfo(fileOf(speed)).isFile()) m_speeds.append(speed);
}

QString SpeedSoundTable::fileOf(int speedKmh) const {
    return bandFile(m_strDirectory, speedKmh);
}

QString SpeedSoundTable::bandFile(const QString& hostDirectory, int speedKmh) {
    return hostDirectory + QString::asprintf("/%d.wav", speedKmh);
}

QString SpeedSoundTable::nextSound(int speedKmh) {
    const auto above = std::upper_bound(m_speeds.cbegin(), m_speeds.cend(), speedKmh);
    if (above == m_speeds.cbegin()) return {};
    const int band = *(above - 1);
    if (band == m_nLastPlayed) return {};
    m_nLastPlayed = band;
    return fileOf(band);
}
