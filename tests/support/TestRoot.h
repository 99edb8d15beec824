#pragma once

#include "platform/DeviceRoot.h"
#include "settings/RegistryHive.h"

#include <QTemporaryDir>
#include <memory>

// A fresh device root in a temporary folder with its own registry hive, made current for the test.
class TestRoot {
public:
    TestRoot();
    ~TestRoot();
    QString path() const { return m_dir.path(); }
    QString file(const QString& relative) const { return m_dir.filePath(relative); }
    const DeviceRoot& root() const { return m_root; }
    RegistryHive& hive() { return *m_hive; }
    // The value lines of the settings key as regedit writes them, e.g. "\"Speed\"=dword:000012c0".
    QStringList settingsLines();

private:
    QTemporaryDir m_dir;
    DeviceRoot m_root;
    std::shared_ptr<RegistryHive> m_hive;
};
