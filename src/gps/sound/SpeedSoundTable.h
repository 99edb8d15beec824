#pragma once

#include <QList>
#include <QString>

class CRegistryKey;
class DeviceRoot;

// The speed sounds: one WAV file per speed band, "<directory>/<n>.wav" for n = 0..399 km/h. A sound
// is due each time the speed enters another band, upward or downward, never twice in a row for the
// same band.
class SpeedSoundTable {
public:
    static constexpr int kMaxSpeedKmh = 399;

    // "PlaySpeedSound" and "SpeedWaves"; the table is empty when speed sounds are off. Forgets the
    // last band played.
    void load(CRegistryKey& key, const DeviceRoot& root);
    // The bands of the files found in `directory` (a system or host path), whatever the flag says.
    void scan(const QString& directory, const DeviceRoot& root);

    // The file to play for `speedKmh`, or an empty string when the speed lies below the first band
    // or in the band played last. Remembers the band it returns.
    QString nextSound(int speedKmh);

    const QList<int>& speeds() const { return m_speeds; } // km/h, ascending
    QString fileOf(int speedKmh) const;                   // host path of a band's file
    static QString bandFile(const QString& hostDirectory, int speedKmh);

private:
    QString m_strDirectory; // host path
    QList<int> m_speeds;
    int m_nLastPlayed = -1;
};
