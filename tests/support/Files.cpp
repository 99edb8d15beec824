#include "Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString writeFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        ADD_FAILURE() << "cannot write " << path.toStdString();
    return path;
}

QByteArray utf16Bytes(const QString& text, bool bBigEndian) {
    QByteArray bytes;
    for (const QChar c : text) {
        const char high = char(c.unicode() >> 8), low = char(c.unicode() & 0xFF);
        bytes.append(bBigEndian ? high : low).append(bBigEndian ? low : high);
    }
    return bytes;
}
