#pragma once

#include <QByteArray>
#include <QString>

// The bytes of a file; empty when it cannot be read.
QByteArray readFile(const QString& path);
// Writes `bytes` to a file, making its folders first; a failure fails the running test. Gives the path.
QString writeFile(const QString& path, const QByteArray& bytes);
// `text` as UTF-16 without a byte order mark, little-endian unless `bBigEndian`.
QByteArray utf16Bytes(const QString& text, bool bBigEndian = false);
