#include "integrations/tmc/TmcInfoFile.h"

#include "platform/DeviceRoot.h"
#include "settings/CIniFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace TmcInfoFile {

QString TargetPath(const DeviceRoot& root) {
    CIniFile profile;
    if (!profile.Load(QDir(root.programFolder()).filePath(QStringLiteral("GPSTMCInfo.ini")))) return {};
    QString folder;
    if (!profile.ReadString(QStringLiteral("GPSTMCInfoSettings"),
                            QStringLiteral("PathWhereToWriteGPSTMCInfo"), folder) ||
        folder.trimmed().isEmpty())
        return {};
    return QDir(root.hostPath(folder.trimmed())).filePath(QStringLiteral("GPSTMCInfo.txt"));
}

bool Write(const QString& hostPath, const QString& station, int nSatellites, int nMessages) {
    QDir().mkpath(QFileInfo(hostPath).path());
    QSaveFile file(hostPath);
    if (!file.open(QIODevice::WriteOnly)) return false;
    const QString text =
        QStringLiteral("station=%1\nnsat=%2\nntmcm=%3\n").arg(station).arg(nSatellites).arg(nMessages);
    file.write(text.toUtf8());
    return file.commit();
}

} // namespace TmcInfoFile
