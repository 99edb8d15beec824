#include "platform/BatteryStatus.h"

#include <QDir>
#include <QFile>

namespace {

QByteArray firstLine(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return file.readLine(64).trimmed();
}

} // namespace

int readBatteryPercent(const QString& powerSupplyFolder) {
    const QDir folder(powerSupplyFolder);
    for (const QString& supply : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString base = folder.filePath(supply) + '/';
        if (firstLine(base + "type") != "Battery") continue;
        bool bOk = false;
        const int nPercent = firstLine(base + "capacity").toInt(&bOk);
        // A battery without a readable capacity says nothing; a laptop may have a second one.
        if (bOk && nPercent >= 0 && nPercent <= 100) return nPercent;
    }
    return kUnknownBatteryPercent;
}
