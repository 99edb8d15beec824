#pragma once

#include <QString>

// Maps the handheld's own absolute paths ("/My Documents/TragLog", "\POI", "\windows\Infend.wav")
// into one folder on this machine. Nothing else turns a system path into a host path.
class DeviceRoot {
public:
    // Root chosen by the user: --root DIR, else TARVIK_ROOT, else $XDG_DATA_HOME/tarvik.
    static DeviceRoot fromEnvironment(const QString& rootOption = QString());

    explicit DeviceRoot(const QString& hostFolder);

    // The root of this process, set once at start (default: fromEnvironment()).
    static const DeviceRoot& current();
    static void setCurrent(const DeviceRoot& root);

    const QString& hostFolder() const { return m_strRoot; }
    // "<root>/Tarvik": user pages, "MNInfo.ini", the default "Waypoints.asc".
    QString programFolder() const;
    // A system path ("\" and "/" both separate) as a host path inside the root; ".." never leaves
    // the root. A path that is already a host path is returned as it is: one inside the root, or an
    // absolute "/"-path whose first folder exists on this machine (a file the user picked, /tmp/x.log).
    QString hostPath(const QString& systemPath) const;
    QString registryFile() const;
    // Downloads kept only until they are used (the handheld's browser cache).
    QString cacheFolder() const;

    // Creates the root and the program folder; false when that is impossible.
    bool ensureExists() const;

private:
    QString m_strRoot;
};
