#include "settings/CRegistryKey.h"

#include <cstring>

CRegistryKey::CRegistryKey(const QString& path, RegistryRoot root)
    : m_hive(RegistryHive::current()), m_root(root) {
    m_strPath = path;
    if (!m_hive) return;
    if (const auto key = m_hive->findKey(root, path)) m_nKeyId = *key;
}

bool CRegistryKey::Repoint(const QString& path, bool create) {
    if (!m_hive) return false;
    const QString wanted = path.isEmpty() ? m_strPath : path;
    if (wanted == m_strPath && IsOpen()) return true;
    m_strPath = wanted;
    const auto key = create ? m_hive->createKey(m_root, wanted) : m_hive->findKey(m_root, wanted);
    m_nKeyId = key ? *key : -1;
    return IsOpen();
}

std::optional<RegistryValue> CRegistryKey::Read(const QString& name, const QString& path) {
    if (!Repoint(path, false)) return std::nullopt;
    return m_hive->value(m_nKeyId, name);
}

bool CRegistryKey::Write(const QString& name, const RegistryValue& value, const QString& path) {
    if (!Repoint(path, true)) return false;
    if (m_hive->setValue(m_nKeyId, name, value)) return true;
    m_nKeyId = -1; // the key vanished under us (another process deleted it): reopen next time
    return false;
}

std::optional<QByteArray> CRegistryKey::ReadFixed(const QString& name, uint32_t capacity,
                                                  const QString& path) {
    auto value = Read(name, path);
    if (!value || value->data.size() > qsizetype(capacity)) return std::nullopt;
    return value->data;
}

bool CRegistryKey::ReadString(const QString& name, QString& value, const QString& path) {
    const auto stored = Read(name, path);
    if (!stored) return false;
    value = stored->toString();
    return true;
}

bool CRegistryKey::WriteString(const QString& name, const QString& value, const QString& path) {
    return Write(name, RegistryValue::fromString(value), path);
}

bool CRegistryKey::ReadDword(const QString& name, uint32_t& value, const QString& path) {
    const auto data = ReadFixed(name, 4, path);
    if (!data) return false;
    value = RegistryValue{RegistryType::Dword, *data}.toDword();
    return true;
}

bool CRegistryKey::WriteDword(const QString& name, uint32_t value, const QString& path) {
    return Write(name, RegistryValue::fromDword(value), path);
}

uint32_t CRegistryKey::GetDword(const QString& name, uint32_t defaultValue, const QString& path) {
    uint32_t value = defaultValue;
    return ReadDword(name, value, path) ? value : defaultValue;
}

bool CRegistryKey::ReadByte(const QString& name, uint8_t& value, const QString& path) {
    const auto data = ReadFixed(name, 1, path);
    if (!data) return false;
    if (!data->isEmpty()) value = static_cast<uint8_t>(data->at(0));
    return true;
}

bool CRegistryKey::WriteByte(const QString& name, uint8_t value, const QString& path) {
    return Write(name, {RegistryType::Binary, QByteArray(1, static_cast<char>(value))}, path);
}

bool CRegistryKey::ReadFlag(const QString& name, bool& value, const QString& path) {
    uint8_t byte = value ? 1 : 0;
    if (!ReadByte(name, byte, path)) return false;
    value = byte != 0;
    return true;
}

bool CRegistryKey::WriteFlag(const QString& name, bool value, const QString& path) {
    return WriteByte(name, value ? 1 : 0, path);
}

bool CRegistryKey::GetFlag(const QString& name, bool defaultValue, const QString& path) {
    bool value = defaultValue;
    return ReadFlag(name, value, path) ? value : defaultValue;
}

bool CRegistryKey::ReadBinary(const QString& name, void* buffer, uint32_t& length, const QString& path) {
    const auto data = ReadFixed(name, length, path);
    if (!data) {
        length = 0;
        return false;
    }
    std::memcpy(buffer, data->constData(), data->size());
    length = static_cast<uint32_t>(data->size());
    return true;
}

uint32_t CRegistryKey::WriteBinary(const QString& name, const void* buffer, uint32_t length,
                                   const QString& path) {
    if (!Repoint(path, true)) return kNoKeyStatus;
    return Write(name, {RegistryType::Binary, QByteArray(static_cast<const char*>(buffer), length)}, path)
               ? 0
               : 1;
}

bool CRegistryKey::ReadFloat(const QString& name, float& value, const QString& path) {
    double wide = 0;
    if (!ReadDouble(name, wide, path)) return false;
    value = static_cast<float>(wide);
    return true;
}

bool CRegistryKey::WriteFloat(const QString& name, float value, const QString& path) {
    return WriteDouble(name, value, path);
}

bool CRegistryKey::ReadDouble(const QString& name, double& value, const QString& path) {
    QString text;
    if (!ReadString(name, text, path)) return false;
    value = ValueText::wcstod(text);
    return true;
}

bool CRegistryKey::WriteDouble(const QString& name, double value, const QString& path) {
    return WriteString(name, ValueText::formatF(value), path);
}

bool CRegistryKey::ReadRect(const QString& name, Rect& value, const QString& path) {
    QString text;
    if (!ReadString(name, text, path)) return false;
    value = ValueText::parseRect(text);
    return true;
}

bool CRegistryKey::WriteRect(const QString& name, const Rect& value, const QString& path) {
    return WriteString(name, ValueText::formatRect(value), path);
}

bool CRegistryKey::ReadColour(const QString& name, Colour& value, const QString& path) {
    QString text;
    if (!ReadString(name, text, path)) return false;
    ValueText::parseColour(text, value);
    return true;
}

bool CRegistryKey::WriteColour(const QString& name, Colour value, const QString& path) {
    return WriteString(name, ValueText::formatColour(value), path);
}

bool CRegistryKey::ReadIntList(const QString& name, QList<int32_t>& values, const QString& path) {
    QString text;
    if (!ReadString(name, text, path)) return false;
    values = ValueText::parseIntList(text);
    return true;
}

bool CRegistryKey::WriteIntList(const QString& name, const QList<int32_t>& values, const QString& path) {
    return WriteString(name, ValueText::formatIntList(values), path);
}

bool CRegistryKey::EnumValue(int& index, QString& name) {
    if (!Repoint({}, false)) return false;
    const auto found = m_hive->valueNameAt(m_nKeyId, index);
    if (!found) return false;
    name = found->left(260);
    ++index;
    return true;
}

bool CRegistryKey::DeleteValue(const QString& name, const QString& path) {
    return Repoint(path, false) && m_hive->deleteValue(m_nKeyId, name);
}

bool CRegistryKey::DeleteKeyTree(const QString& path) {
    if (!m_hive) return false;
    if (!path.compare(m_strPath, Qt::CaseInsensitive)) m_nKeyId = -1;
    return m_hive->deleteTree(m_root, path);
}
