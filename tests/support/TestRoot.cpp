#include "TestRoot.h"

#include "settings/CRegistryKey.h"
#include "settings/RegFile.h"

#include <QRegularExpression>

TestRoot::TestRoot() : m_root(m_dir.path()) {
    m_root.ensureExists();
    DeviceRoot::setCurrent(m_root);
    m_hive = std::make_shared<RegistryHive>(m_root.registryFile());
    RegistryHive::setCurrent(m_hive);
}

TestRoot::~TestRoot() {
    RegistryHive::setCurrent(nullptr);
}

QStringList TestRoot::settingsLines() {
    const QByteArray bytes =
        RegFile::exportHive(*m_hive, RegistryKeyName{RegistryRoot::CurrentUser,
                                                     QString::fromLatin1(CRegistryKey::kSettingsPath)});
    const QString text = QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData() + 2),
                                            (bytes.size() - 2) / 2); // behind the byte order mark
    return text.split(QStringLiteral("\r\n")).filter(QRegularExpression(QStringLiteral("^\"")));
}
