#include "demo/DemoRoot.h"

#include "platform/DeviceRoot.h"
#include "settings/DevLog.h"
#include "settings/RegFile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

std::optional<QByteArray> readAll(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.readAll();
}

bool writeAll(const QString& path, const QByteArray& bytes) {
    if (!QDir().mkpath(QFileInfo(path).absolutePath())) return false;
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

// Names and contents of every file of the data folder, in a fixed order.
QByteArray digestOf(const QString& dataFolder) {
    // Absolute, so that the names hashed do not depend on how the folder was named.
    const QDir folder(QDir(dataFolder).absolutePath());
    QStringList files;
    QDirIterator it(folder.path(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << folder.relativeFilePath(it.next());
    files.sort();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& name : files) {
        hash.addData(name.toUtf8() + '\0');
        hash.addData(readAll(folder.filePath(name)).value_or(QByteArray()) + '\0');
    }
    return hash.result().toHex();
}

bool isInside(const QString& path, const QString& folder) {
    const QString root = QDir::cleanPath(QDir(folder).absolutePath()) + '/';
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath()).startsWith(root);
}

// Copies the data entry a setting names (see DemoRoot.h) to the host path of the setting's value;
// files already there are kept unless `bReplace`.
bool installTarget(const DeviceRoot& root, const QString& dataFolder, const QString& systemPath,
                   bool bReplace) {
    const QStringList parts = QString(systemPath).replace('\\', '/').split('/', Qt::SkipEmptyParts);
    if (parts.isEmpty()) return true;
    const QFileInfo entry(QDir(dataFolder).filePath(parts.last()));
    if (!entry.exists()) return true; // a plain setting, not a place
    const QString target = root.hostPath(systemPath);
    if (!isInside(target, root.hostFolder())) {
        devLog("!!!!demo: %s lies outside the demo root", systemPath.toUtf8().constData());
        return false;
    }
    QStringList sources;
    if (entry.isDir())
        for (const QFileInfo& file : QDir(entry.filePath()).entryInfoList(QDir::Files, QDir::Name))
            sources << file.filePath();
    else
        sources << entry.filePath();
    for (const QString& source : sources) {
        const QString destination =
            entry.isDir() ? QDir(target).filePath(QFileInfo(source).fileName()) : target;
        if (!bReplace && QFileInfo::exists(destination)) continue;
        const auto bytes = readAll(source);
        if (!bytes || !writeAll(destination, *bytes)) {
            devLog("!!!!demo: cannot copy %s", source.toUtf8().constData());
            return false;
        }
    }
    return true;
}

} // namespace

QString findDemoData(const QStringList& candidates) {
    for (const QString& folder : candidates)
        if (!folder.isEmpty() && QFileInfo::exists(QDir(folder).filePath(DemoRoot::kSettingsFile)))
            return folder;
    return {};
}

bool prepareDemoRoot(const QString& folder, const QString& dataFolder) {
    const auto settings = readAll(QDir(dataFolder).filePath(DemoRoot::kSettingsFile));
    if (!settings) {
        devLog("!!!!demo: no %s in %s", DemoRoot::kSettingsFile, dataFolder.toUtf8().constData());
        return false;
    }
    const RegFile::Parsed parsed = RegFile::parse(*settings);
    if (!parsed.error.isEmpty()) {
        devLog("!!!!demo: %s %s", DemoRoot::kSettingsFile, parsed.error.toUtf8().constData());
        return false;
    }
    const QByteArray digest = digestOf(dataFolder);
    const DeviceRoot root(folder);
    if (!root.ensureExists()) return false;
    // The version lives in the settings themselves: settings set aside as damaged, or lost any other
    // way, take the version with them, and the next start repairs the root.
    RegistryHive hive(root.registryFile());
    const auto stampKey = hive.findKey(RegistryRoot::CurrentUser, QString::fromLatin1(DemoRoot::kStampKey));
    const auto stamp =
        stampKey ? hive.value(*stampKey, QString::fromLatin1(DemoRoot::kStampValue)) : std::nullopt;
    const bool bFresh = !stamp || stamp->toString() != QString::fromLatin1(digest);

    for (const RegFile::KeyChange& key : parsed.keys)
        for (const RegFile::ValueChange& change : key.values)
            if (change.value && change.value->type == RegistryType::String &&
                !installTarget(root, dataFolder, change.value->toString(), bFresh))
                return false;
    if (!bFresh) return true;
    if (!hive.isOpen() || !RegFile::apply(hive, parsed)) return false;
    // Written last: a root left half-filled is filled again on the next call.
    const auto key = hive.createKey(RegistryRoot::CurrentUser, QString::fromLatin1(DemoRoot::kStampKey));
    return key && hive.setValue(*key, QString::fromLatin1(DemoRoot::kStampValue),
                                RegistryValue::fromString(QString::fromLatin1(digest)));
}
