#pragma once

#include <QString>

class CRegistryKey;
class DeviceRoot;

// The three alert sounds, each a host path; an alert that is off keeps an empty path and is never played.
class AlertSoundFiles {
public:
    enum class Alert { NoFix, SignalBack, NoData };

    // The three flag/file pairs ("NSSound"/"NSSoundWav", "SignalSound"/..., "NoDataSound"/...).
    void load(CRegistryKey& key, const DeviceRoot& root);
    const QString& file(Alert alert) const { return m_files[static_cast<int>(alert)]; }

private:
    QString m_files[3];
};
