#include "gps/sound/AlertSoundFiles.h"

#include "gps/sound/SoundSettings.h"
#include "gps/sources/SourceSettings.h"
#include "platform/DeviceRoot.h"

namespace {

struct AlertSetting {
    const Setting<bool>& flag;
    const Setting<const char*>& file;
};

// In the order of AlertSoundFiles::Alert.
const AlertSetting kAlerts[] = {
    {SoundSettings::kNoFixSound, SoundSettings::kNoFixSoundWav},
    {SoundSettings::kSignalSound, SoundSettings::kSignalSoundWav},
    {SoundSettings::kNoDataSound, SoundSettings::kNoDataSoundWav},
};

} // namespace

void AlertSoundFiles::load(CRegistryKey& key, const DeviceRoot& root) {
    for (int i = 0; i < 3; ++i) {
        const QString file = readSetting(key, kAlerts[i].file);
        const bool bOn = readSetting(key, kAlerts[i].flag);
        m_files[i] = bOn && !file.isEmpty() ? root.hostPath(file) : QString();
    }
}
