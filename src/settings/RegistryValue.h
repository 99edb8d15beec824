#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>

// Value types with the handheld registry's numbers, so .reg files and binary layouts match.
enum class RegistryType : uint32_t { String = 1, Binary = 3, Dword = 4 };

// One typed registry value with the bytes the registry stores: strings as UTF-16 LE with their
// terminating zero, 32-bit integers as 4 bytes little-endian.
struct RegistryValue {
    RegistryType type = RegistryType::Binary;
    QByteArray data;

    static RegistryValue fromString(const QString& text);
    static RegistryValue fromDword(uint32_t value);
    // The text up to the terminating zero (or the whole value when it has none).
    QString toString() const;
    // Little-endian; a value shorter than 4 bytes is zero-extended.
    uint32_t toDword() const;
};
