#include "maps/MapPaths.h"

namespace {

qsizetype lastSeparator(const QString& path) {
    return std::max(path.lastIndexOf('/'), path.lastIndexOf('\\'));
}

} // namespace

namespace MapPaths {

QString DirectoryPart(const QString& path) {
    return path.left(lastSeparator(path) + 1);
}

QString FileNamePart(const QString& path) {
    return path.mid(lastSeparator(path) + 1);
}

QString BaseName(const QString& path) {
    const QString name = FileNamePart(path);
    const qsizetype dot = name.lastIndexOf('.');
    return dot < 0 ? name : name.left(dot);
}

QString CalibrationPathFor(const QString& mapFile) {
    if (mapFile.size() < 5) return QString();
    return mapFile.left(mapFile.size() - 3) + QStringLiteral("kal");
}

} // namespace MapPaths
