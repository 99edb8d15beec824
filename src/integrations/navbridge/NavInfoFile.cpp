#include "integrations/navbridge/NavInfoFile.h"

#include "integrations/navbridge/NavProgramKind.h"
#include "platform/DeviceRoot.h"

#include <QDir>
#include <QFileInfo>

QString NavInfoFile::find(const DeviceRoot& root, const QString& navProgramFolder) {
    const QString name = QString::fromLatin1(kFileName);
    QStringList folders;
    if (!navProgramFolder.isEmpty()) folders << root.hostPath(navProgramFolder);
    folders << root.programFolder();
    for (const QString& folder : folders) {
        const QString path = QDir(folder).filePath(name);
        if (QFileInfo(path).isFile()) return path;
    }
    return {};
}

QString NavInfoFile::listSection(int kind) {
    switch (kind) {
    case NavProgramKind::kFalkMarcoPolo:
        return QStringLiteral("Falk");
    case NavProgramKind::kTomTom:
    case NavProgramKind::kTomTomSdk:
        return QStringLiteral("TomTom");
    case NavProgramKind::kMNPwc80:
    case NavProgramKind::kMNBefore5:
    case NavProgramKind::kMN5:
        return QStringLiteral("MobileNavigator");
    case NavProgramKind::kNavit:
        return QStringLiteral("Navit");
    default:
        return {};
    }
}
