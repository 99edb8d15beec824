#include "platform/DeviceRoot.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

DeviceRoot DeviceRoot::fromEnvironment(const QString& rootOption) {
    if (!rootOption.isEmpty()) return DeviceRoot(rootOption);
    const QString fromEnv = qEnvironmentVariable("TARVIK_ROOT");
    if (!fromEnv.isEmpty()) return DeviceRoot(fromEnv);
    QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
    if (dataHome.isEmpty()) dataHome = QDir::homePath() + "/.local/share";
    return DeviceRoot(dataHome + "/tarvik");
}

namespace {

DeviceRoot& currentRoot() {
    static DeviceRoot root = DeviceRoot::fromEnvironment();
    return root;
}

bool isHostPath(const QString& path) {
    if (!path.startsWith('/') || path.contains('\\')) return false;
    const QString first = path.section('/', 1, 1);
    return !first.isEmpty() && QFileInfo::exists('/' + first);
}

} // namespace

const DeviceRoot& DeviceRoot::current() {
    return currentRoot();
}

void DeviceRoot::setCurrent(const DeviceRoot& root) {
    currentRoot() = root;
}

DeviceRoot::DeviceRoot(const QString& hostFolder)
    : m_strRoot(QDir::cleanPath(QDir(hostFolder).absolutePath())) {}

QString DeviceRoot::programFolder() const {
    return m_strRoot + "/Tarvik";
}

QString DeviceRoot::hostPath(const QString& systemPath) const {
    if (isHostPath(systemPath)) return QDir::cleanPath(systemPath);
    QString path = systemPath;
    path.replace('\\', '/');
    if (path == m_strRoot || path.startsWith(m_strRoot + '/')) return QDir::cleanPath(path);
    // Resolve ".." against a virtual "/" so that the result cannot climb out of the root.
    const QString inside = QDir::cleanPath('/' + path);
    QString relative = inside;
    while (relative.startsWith("/.."))
        relative.remove(0, 3);
    return relative == "/" || relative.isEmpty() ? m_strRoot : m_strRoot + relative;
}

QString DeviceRoot::registryFile() const {
    return m_strRoot + "/registry.db";
}

QString DeviceRoot::cacheFolder() const {
    return m_strRoot + "/cache";
}

bool DeviceRoot::ensureExists() const {
    return QDir().mkpath(programFolder());
}
