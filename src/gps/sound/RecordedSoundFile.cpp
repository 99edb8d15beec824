#include "gps/sound/RecordedSoundFile.h"

#include "gps/sound/SoundSettings.h"
#include "gps/sound/SpeedSoundTable.h"
#include "platform/DeviceRoot.h"
#include "platform/WavFile.h"
#include "settings/CRegistryKey.h"

#include <QDir>
#include <QFileInfo>

QString RecordedSoundFile::speedBand(int speedKmh, CRegistryKey& key, const DeviceRoot& root) {
    if (speedKmh < 0 || speedKmh > SpeedSoundTable::kMaxSpeedKmh) return {};
    const QString folder = root.hostPath(readSetting(key, SoundSettings::kSpeedWaves));
    return QDir::cleanPath(SpeedSoundTable::bandFile(folder, speedKmh));
}

QString RecordedSoundFile::save(const QString& hostPath, const QByteArray& samples, int rate) {
    if (hostPath.isEmpty()) return QStringLiteral("Kein Dateiname");
    if (samples.isEmpty() || rate <= 0) return QStringLiteral("Nichts aufgenommen");
    const QString folder = QFileInfo(hostPath).absolutePath();
    if (!QDir().mkpath(folder)) return QStringLiteral("Ordner %1 kann nicht angelegt werden").arg(folder);
    const QString error = WavFile::writeMono16(hostPath, samples, rate);
    return error.isEmpty() ? QString() : QStringLiteral("%1: %2").arg(QFileInfo(hostPath).fileName(), error);
}
