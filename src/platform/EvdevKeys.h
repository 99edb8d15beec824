#pragma once

#include "platform/FileDescriptor.h"

#include <QObject>
#include <QString>

class QFileSystemWatcher;
class QSocketNotifier;
class QTimer;

// The keys of one input device (a USB remote, a presenter, a steering-wheel button interface,
// Bluetooth media buttons), read in the background whether the window has the focus or not. The
// device is grabbed while open, so its keys reach no other program at the same time; after it is
// unplugged it is opened again as soon as it comes back (the input folder is watched, and scanned
// every two seconds as well).
class EvdevKeys : public QObject {
    Q_OBJECT
public:
    explicit EvdevKeys(QString inputFolder = QStringLiteral("/dev/input"), QObject* parent = nullptr);
    ~EvdevKeys() override;

    // The device by the name its driver reports ("Logitech USB Receiver") or by a path
    // ("/dev/input/by-id/usb-…-event-kbd"); empty: none.
    void SetDevice(const QString& nameOrPath);
    bool IsOpen() const { return m_device.isOpen(); }
    QString OpenPath() const { return m_strOpenPath; }
    // Why the device cannot be read, in one line for the user; empty when it is read or not there.
    QString Problem() const { return m_strProblem; }

Q_SIGNALS:
    // A key went down or up (repeats of a held key are left out); `code` is the kernel's key code.
    void key(int code, bool bDown);
    // Opened, closed or a new problem.
    void stateChanged();

private:
    void TryOpen();
    bool OpenPath(const QString& path);
    void Close();
    void ReadEvents();
    void SetProblem(const QString& problem);

    QString m_strInputFolder;
    QString m_strDevice;
    QString m_strOpenPath;
    QString m_strProblem;
    FileDescriptor m_device;
    QSocketNotifier* m_pNotifier = nullptr;
    QFileSystemWatcher* m_pWatcher;
    QTimer* m_pRescan;
};
