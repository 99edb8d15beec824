#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <type_traits>

class CRegistryKey;

// A setting under SOFTWARE\Omvale\Fendix: its value name, its default and whether a missing value
// is written back with the default at once. Each subsystem declares its settings once as these, and
// code reads and writes them only through the functions below, which take the registry type from T:
//   bool     flag, 1-byte binary            uint8_t         small number, 1-byte binary
//   int32_t  32-bit integer                 float, double   "%f" text
//   const char*  string (read and written as QString)
template <typename T> struct Setting {
    using Value = std::conditional_t<std::is_same_v<T, const char*>, QString, T>;

    const char* m_pszName;
    T m_default;
    bool m_bWriteBack;

    QString name() const { return QString::fromLatin1(m_pszName); }
};

// The stored value, or nothing when it is missing or stored in another form.
template <typename T>
std::optional<typename Setting<T>::Value> readStoredSetting(CRegistryKey& key, const Setting<T>& setting);

// The stored value, or the default when it is missing (written back when the setting says so).
template <typename T> typename Setting<T>::Value readSetting(CRegistryKey& key, const Setting<T>& setting);

// Stores `value` in the setting's registry type; false when it could not be written.
template <typename T>
bool writeSetting(CRegistryKey& key, const Setting<T>& setting,
                  const std::type_identity_t<typename Setting<T>::Value>& value);

// A float stored with `decimals` digits behind the point instead of "%f"'s six: the text the user
// typed and sees.
bool writeSetting(CRegistryKey& key, const Setting<float>& setting, float value, int decimals);
