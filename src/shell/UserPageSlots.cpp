#include "shell/UserPageSlots.h"

#include "settings/CIniFile.h"

#include <QDir>

UserPageSlots scanUserPages(const QString& programFolder) {
    UserPageSlots slots;
    size_t next = 0;
    const QDir folder(programFolder);
    for (const QString& file : folder.entryList({QStringLiteral("*.ini")}, QDir::Files, QDir::Name)) {
        if (next == slots.size()) break;
        CIniFile ini;
        QString name;
        if (!ini.Load(folder.filePath(file)) ||
            !ini.ReadString(QStringLiteral("Global"), QStringLiteral("Name"), name))
            continue;
        slots[next++] = {folder.filePath(file), name};
    }
    return slots;
}
