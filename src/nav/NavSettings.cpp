#include "nav/NavSettings.h"

#include "settings/CRegistryKey.h"

uint32_t ReadNavSetting(const NavDwordSetting& setting) {
    CRegistryKey key;
    const QString name = QString::fromLatin1(setting.m_szName);
    uint32_t value = 0;
    if (key.ReadDword(name, value)) return value;
    if (setting.m_bWriteBack) key.WriteDword(name, setting.m_nDefault);
    return setting.m_nDefault;
}
