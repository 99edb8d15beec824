#include "TestData.h"

#include <QDir>

QString testDataDir() {
    return QStringLiteral(TARVIK_SOURCE_DIR "/tests/data");
}

std::optional<QString> sharedDataDir() {
    const QString dir = QDir::cleanPath(QStringLiteral(TARVIK_SOURCE_DIR "/../shared/data"));
    if (!QDir(dir).exists()) return std::nullopt;
    return dir;
}
