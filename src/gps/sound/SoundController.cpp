#include "gps/sound/SoundController.h"

#include "gps/GpsFix.h"
#include "platform/NoiseMeter.h"
#include "platform/SoundOutput.h"
#include "settings/CRegistryKey.h"

#include <algorithm>

SoundController::SoundController(SoundOutput& output, NoiseMeter& noise, const DeviceRoot& root,
                                 const GpsFix& fix)
    : m_output(output), m_noise(noise), m_root(root), m_fix(fix) {}

SoundController::~SoundController() {
    shutdown();
}

void SoundController::loadSettings() {
    loadAlertSounds();
    loadSpeedSounds();
    loadVolumeSettings();
    updateVolume(true);
}

void SoundController::loadAlertSounds() {
    CRegistryKey key;
    m_alerts.load(key, m_root);
}

void SoundController::loadSpeedSounds() {
    CRegistryKey key;
    m_speedSounds.load(key, m_root);
}

void SoundController::loadVolumeSettings() {
    CRegistryKey key;
    m_volume = VolumeSettings::read(key);
    m_nStoredWaveVolume = static_cast<uint32_t>(readSetting(key, SoundSettings::kWaveVolume));
    m_nBaseVolume = startBaseVolume(m_volume, m_nStoredWaveVolume);
    const bool bMeasure = m_volume.m_nDynaSound != 0;
    if (bMeasure == m_bNoiseMeasured) return;
    m_bNoiseMeasured = bMeasure;
    if (bMeasure)
        m_noise.start();
    else
        m_noise.stop();
}

void SoundController::shutdown() {
    if (!m_bNoiseMeasured) return;
    m_bNoiseMeasured = false;
    m_noise.stop();
}

void SoundController::playSpeedSound(int speedKmh) {
    const QString file = m_speedSounds.nextSound(speedKmh);
    if (!file.isEmpty()) m_output.playFile(file);
}

void SoundController::updateVolume(bool bForce) {
    const VolumeInput input{m_fix.m_fSpeed, m_bNoiseMeasured, m_bNoiseMeasured ? m_noise.level() : 0,
                            m_nBaseVolume, m_bSoundOn};
    const VolumeChange change = computeVolume(m_volume, input, bForce);
    if (!change.m_bApplies) return;
    m_output.setVolume(change.m_nWaveVolume);
    if (change.m_nWaveVolume != m_nStoredWaveVolume) {
        m_nStoredWaveVolume = change.m_nWaveVolume;
        CRegistryKey key;
        writeSetting(key, SoundSettings::kWaveVolume, static_cast<int32_t>(m_nStoredWaveVolume));
    }
    m_strVolumeLabel = change.m_strLabel;
    if (m_labelSink) m_labelSink(m_strVolumeLabel);
}

void SoundController::setBaseVolume(int percent) {
    m_nBaseVolume = std::clamp(percent, 0, 100);
}

void SoundController::playNoFixSound() {
    playAlert(AlertSoundFiles::Alert::NoFix);
}
void SoundController::playSignalSound() {
    playAlert(AlertSoundFiles::Alert::SignalBack);
}
void SoundController::playNoDataSound() {
    playAlert(AlertSoundFiles::Alert::NoData);
}

void SoundController::validEpoch(int speedKmh) {
    playSpeedSound(speedKmh);
    updateVolume(false);
}

void SoundController::playAlert(AlertSoundFiles::Alert alert) {
    const QString& file = m_alerts.file(alert);
    if (!file.isEmpty()) m_output.playFile(file);
}
