#pragma once

#include "settings/RegistryHive.h"
#include "settings/ValueText.h"

#include <QList>
#include <QString>
#include <cstdint>
#include <memory>

// One open registry key with typed reads and writes. Every operation takes an optional key path:
// empty means the key's own path; another path re-points the object there first (writes create the
// key). Failures are reported only by the results; nothing is shown to the user.
class CRegistryKey {
public:
    static constexpr const char* kSettingsPath = "SOFTWARE\\Omvale\\Fendix";
    static constexpr uint32_t kNoKeyStatus = 3; // what a binary write reports when no key is open

    explicit CRegistryKey(const QString& path = QString::fromLatin1(kSettingsPath),
                          RegistryRoot root = RegistryRoot::CurrentUser);

    bool IsOpen() const { return m_nKeyId >= 0; }

    bool ReadString(const QString& name, QString& value, const QString& path = {});
    bool WriteString(const QString& name, const QString& value, const QString& path = {});
    bool ReadDword(const QString& name, uint32_t& value, const QString& path = {});
    bool WriteDword(const QString& name, uint32_t value, const QString& path = {});
    // The stored value, or `defaultValue` when the key or value is missing or stored wider than 4 bytes.
    uint32_t GetDword(const QString& name, uint32_t defaultValue, const QString& path = {});
    bool ReadFlag(const QString& name, bool& value, const QString& path = {});
    bool WriteFlag(const QString& name, bool value, const QString& path = {});
    bool GetFlag(const QString& name, bool defaultValue, const QString& path = {});
    bool ReadByte(const QString& name, uint8_t& value, const QString& path = {});
    bool WriteByte(const QString& name, uint8_t value, const QString& path = {});
    // Reads up to `length` bytes; on failure `length` becomes 0.
    bool ReadBinary(const QString& name, void* buffer, uint32_t& length, const QString& path = {});
    // 0 on success, else a registry status (kNoKeyStatus when no key is open).
    uint32_t WriteBinary(const QString& name, const void* buffer, uint32_t length, const QString& path = {});
    bool ReadFloat(const QString& name, float& value, const QString& path = {});
    bool WriteFloat(const QString& name, float value, const QString& path = {});
    bool ReadDouble(const QString& name, double& value, const QString& path = {});
    bool WriteDouble(const QString& name, double value, const QString& path = {});
    bool ReadRect(const QString& name, Rect& value, const QString& path = {});
    bool WriteRect(const QString& name, const Rect& value, const QString& path = {});
    bool ReadColour(const QString& name, Colour& value, const QString& path = {});
    bool WriteColour(const QString& name, Colour value, const QString& path = {});
    bool ReadIntList(const QString& name, QList<int32_t>& values, const QString& path = {});
    bool WriteIntList(const QString& name, const QList<int32_t>& values, const QString& path = {});

    // The name of the value at `index` (insertion order); advances the index; false at the end.
    bool EnumValue(int& index, QString& name);
    bool DeleteValue(const QString& name, const QString& path = {});
    // Deletes root\path with all its subkeys and values; the result is that of deleting the key itself.
    bool DeleteKeyTree(const QString& path);

private:
    bool Repoint(const QString& path, bool create);
    std::optional<RegistryValue> Read(const QString& name, const QString& path);
    bool Write(const QString& name, const RegistryValue& value, const QString& path);
    // Reads a value of at most `capacity` bytes, the way a fixed-size buffer does.
    std::optional<QByteArray> ReadFixed(const QString& name, uint32_t capacity, const QString& path);

    std::shared_ptr<RegistryHive> m_hive;
    RegistryRoot m_root;
    QString m_strPath;
    int64_t m_nKeyId = -1;
};
