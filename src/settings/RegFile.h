#pragma once

#include "settings/RegistryHive.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

// A full key name such as "HKEY_CURRENT_USER\SOFTWARE\Omvale\Fendix" ("HKCU" and "HKLM" accepted).
struct RegistryKeyName {
    RegistryRoot root = RegistryRoot::CurrentUser;
    QString path; // relative to the root, "\" separated; empty for the root itself

    static std::optional<RegistryKeyName> parse(const QString& fullName);
    QString fullName() const;
};

// The "Windows Registry Editor Version 5.00" text that regedit writes and reads, so settings move
// between a Windows machine and Tarvik.
namespace RegFile {

struct ValueChange {
    QString name;                       // empty for the key's default value "@"
    std::optional<RegistryValue> value; // none: delete the value ("name"=-)
};

struct KeyChange {
    RegistryKeyName key;
    bool deleteKey = false; // "[-KEY]"
    QList<ValueChange> values;
};

struct Parsed {
    QList<KeyChange> keys;
    QString error; // "line N: what is wrong"; empty when the whole file was understood
};

// Everything below `from` (both roots when absent), keys before their subkeys; UTF-16 LE with
// byte order mark and CRLF, as regedit writes it.
QByteArray exportHive(RegistryHive& hive, const std::optional<RegistryKeyName>& from);
// Reads UTF-16 or UTF-8 text. Nothing is applied unless the whole file parses.
Parsed parse(const QByteArray& bytes);
bool apply(RegistryHive& hive, const Parsed& parsed);

} // namespace RegFile
