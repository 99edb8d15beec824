#pragma once

#include "gps/DocumentHooks.h"
#include "gps/sound/AlertSoundFiles.h"
#include "gps/sound/SpeedSoundTable.h"
#include "gps/sound/VolumeRules.h"

#include <QString>
#include <functional>

class DeviceRoot;
class NoiseMeter;
class SoundOutput;
struct GpsFix;

// The document's sounds: the three alerts, the speed-band sounds and the volume that follows speed
// and ambient noise. Lives on the UI thread; everything it plays starts asynchronously.
class SoundController final : public AlertHooks {
public:
    // Nothing is owned; all must outlive the controller. `fix` gives the speed for the volume.
    SoundController(SoundOutput& output, NoiseMeter& noise, const DeviceRoot& root, const GpsFix& fix);
    ~SoundController() override;
    SoundController(const SoundController&) = delete;
    SoundController& operator=(const SoundController&) = delete;

    // At start: alert files, speed table, volume settings, then a forced volume update.
    void loadSettings();
    // After the alerts page was saved.
    void loadAlertSounds();
    void loadSpeedSounds();
    // After the settings page stored a volume setting or "DynaSound": re-reads them and starts or
    // stops the noise measurement; the base volume becomes the start value of the new settings.
    void loadVolumeSettings();
    // At shutdown: ends the noise measurement.
    void shutdown();

    // Plays the sound of a newly entered speed band (whole km/h).
    void playSpeedSound(int speedKmh);
    // Applies the volume rules to the output and the label; without `bForce` only while the volume
    // follows speed or noise.
    void updateVolume(bool bForce);

    int baseVolume() const { return m_nBaseVolume; } // percent, see kNeutralBaseVolume
    void setBaseVolume(int percent);                 // clamped to 0..100; call updateVolume(true) after
    bool isSoundOn() const { return m_bSoundOn; }
    void setSoundOn(bool bOn) { m_bSoundOn = bOn; } // call updateVolume(true) after
    const QString& volumeLabel() const { return m_strVolumeLabel; }
    // The page's volume text field, when one is shown; gets every new label.
    void setVolumeLabelSink(std::function<void(const QString&)> sink) { m_labelSink = std::move(sink); }

    // AlertHooks
    void playNoFixSound() override;
    void playSignalSound() override;
    void playNoDataSound() override;
    // The count of invalid epochs belongs to the alerts page; the sounds need nothing of it.
    void invalidEpochs(int) override {}
    void validEpoch(int speedKmh) override;

private:
    void playAlert(AlertSoundFiles::Alert alert);

    SoundOutput& m_output;
    NoiseMeter& m_noise;
    const DeviceRoot& m_root;
    const GpsFix& m_fix;
    AlertSoundFiles m_alerts;
    SpeedSoundTable m_speedSounds;
    VolumeSettings m_volume;
    int m_nBaseVolume = kNeutralBaseVolume;
    bool m_bSoundOn = true;
    bool m_bNoiseMeasured = false;
    uint32_t m_nStoredWaveVolume = 0xFFFFFFFF;
    QString m_strVolumeLabel;
    std::function<void(const QString&)> m_labelSink;
};
