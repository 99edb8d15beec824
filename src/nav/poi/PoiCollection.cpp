#include "nav/poi/PoiCollection.h"

#include "nav/poi/PoiSettings.h"
#include "platform/DeviceRoot.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace {

// true when the wait ran out, false when `stop` was requested first.
bool waitUnlessStopped(std::stop_token stop, int delayMs) {
    std::mutex mutex;
    std::condition_variable_any wake;
    std::unique_lock lock(mutex);
    return !wake.wait_for(lock, stop, std::chrono::milliseconds(delayMs), [] { return false; });
}

} // namespace

int PoiCollection::LoadAllPois(std::stop_token stop, const std::function<void(int)>& progress, int delayMs) {
    if (!waitUnlessStopped(stop, delayMs)) return 0;
    CRegistryKey settings;
    const QString folder = DeviceRoot::current().hostPath(readSetting(settings, PoiSettings::kPoiPath));
    const uint8_t poiSize = readSetting(settings, PoiSettings::kPOISize);
    for (const auto& file : m_files)
        file->m_bEnabled = false;

    CRegistryKey list(PoiSettings::kFilesKey);
    QString name;
    for (int index = 0; list.EnumValue(index, name);) {
        bool enabled = false;
        if (!list.ReadFlag(name, enabled) || !enabled) continue;
        PoiFile& file = fileNamed(name);
        file.m_bEnabled = true;
        if (file.m_strFolder != folder || file.m_icon.isNull()) {
            file.m_strFolder = folder;
            file.m_icon = LoadPoiIcon(file, poiSize);
        }
    }
    int total = 0;
    for (const auto& file : m_files) {
        if (stop.stop_requested()) break;
        if (!file->m_bEnabled) {
            file->m_entries = {};
            file->m_icon = {};
            continue;
        }
        total += LoadPoiFile(*file);
        if (progress) progress(total);
    }
    return total;
}

std::vector<const PoiFile*> PoiCollection::enabledFiles() const {
    std::vector<const PoiFile*> enabled;
    for (const auto& file : m_files)
        if (file->m_bEnabled) enabled.push_back(file.get());
    return enabled;
}

PoiFile& PoiCollection::fileNamed(const QString& name) {
    for (const auto& file : m_files)
        if (file->m_strName == name) return *file;
    m_files.push_back(std::make_unique<PoiFile>());
    m_files.back()->m_strName = name;
    return *m_files.back();
}
