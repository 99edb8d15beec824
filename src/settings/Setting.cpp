#include "settings/Setting.h"

#include "settings/CRegistryKey.h"

namespace {

bool readValue(CRegistryKey& key, const QString& name, bool& value) {
    return key.ReadFlag(name, value);
}
bool readValue(CRegistryKey& key, const QString& name, uint8_t& value) {
    return key.ReadByte(name, value);
}
bool readValue(CRegistryKey& key, const QString& name, int32_t& value) {
    uint32_t stored = 0;
    if (!key.ReadDword(name, stored)) return false;
    value = static_cast<int32_t>(stored);
    return true;
}
bool readValue(CRegistryKey& key, const QString& name, float& value) {
    return key.ReadFloat(name, value);
}
bool readValue(CRegistryKey& key, const QString& name, double& value) {
    return key.ReadDouble(name, value);
}
bool readValue(CRegistryKey& key, const QString& name, QString& value) {
    return key.ReadString(name, value);
}

bool writeValue(CRegistryKey& key, const QString& name, bool value) {
    return key.WriteFlag(name, value);
}
bool writeValue(CRegistryKey& key, const QString& name, uint8_t value) {
    return key.WriteByte(name, value);
}
bool writeValue(CRegistryKey& key, const QString& name, int32_t value) {
    return key.WriteDword(name, static_cast<uint32_t>(value));
}
bool writeValue(CRegistryKey& key, const QString& name, float value) {
    return key.WriteFloat(name, value);
}
bool writeValue(CRegistryKey& key, const QString& name, double value) {
    return key.WriteDouble(name, value);
}
bool writeValue(CRegistryKey& key, const QString& name, const QString& value) {
    return key.WriteString(name, value);
}

template <typename T> typename Setting<T>::Value defaultOf(const Setting<T>& setting) {
    if constexpr (std::is_same_v<T, const char*>)
        return QString::fromLatin1(setting.m_default);
    else
        return setting.m_default;
}

} // namespace

template <typename T>
std::optional<typename Setting<T>::Value> readStoredSetting(CRegistryKey& key, const Setting<T>& setting) {
    typename Setting<T>::Value value{};
    if (!readValue(key, setting.name(), value)) return std::nullopt;
    return value;
}

template <typename T> typename Setting<T>::Value readSetting(CRegistryKey& key, const Setting<T>& setting) {
    if (auto stored = readStoredSetting(key, setting)) return *stored;
    const typename Setting<T>::Value value = defaultOf(setting);
    if (setting.m_bWriteBack) writeValue(key, setting.name(), value);
    return value;
}

template <typename T>
bool writeSetting(CRegistryKey& key, const Setting<T>& setting,
                  const std::type_identity_t<typename Setting<T>::Value>& value) {
    return writeValue(key, setting.name(), value);
}

bool writeSetting(CRegistryKey& key, const Setting<float>& setting, float value, int decimals) {
    return key.WriteString(setting.name(), QString::number(value, 'f', decimals));
}

#define TARVIK_SETTING_TYPE(T)                                                                               \
    template std::optional<Setting<T>::Value> readStoredSetting(CRegistryKey&, const Setting<T>&);           \
    template Setting<T>::Value readSetting(CRegistryKey&, const Setting<T>&);                                \
    template bool writeSetting(CRegistryKey&, const Setting<T>&,                                             \
                               const std::type_identity_t<Setting<T>::Value>&);
TARVIK_SETTING_TYPE(bool)
TARVIK_SETTING_TYPE(uint8_t)
TARVIK_SETTING_TYPE(int32_t)
TARVIK_SETTING_TYPE(float)
TARVIK_SETTING_TYPE(double)
TARVIK_SETTING_TYPE(const char*)
