#include "platform/EvdevKeys.h"

#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QSocketNotifier>
#include <QTimer>
#include <cerrno>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int kRescanMs = 2000;

QString permissionProblem(const QString& path) {
    return QStringLiteral("Keine Leseberechtigung für %1: Mitglied der Gruppe \"input\" werden "
                          "(usermod -aG input BENUTZER) oder eine udev-Regel mit TAG+=\"uaccess\" anlegen.")
        .arg(path);
}

QString deviceName(int fd) {
    char name[256] = {};
    if (ioctl(fd, EVIOCGNAME(sizeof name - 1), name) < 0) return {};
    return QString::fromUtf8(name);
}

} // namespace

EvdevKeys::EvdevKeys(QString inputFolder, QObject* parent)
    : QObject(parent), m_strInputFolder(std::move(inputFolder)), m_pWatcher(new QFileSystemWatcher(this)),
      m_pRescan(new QTimer(this)) {
    m_pRescan->setInterval(kRescanMs);
    connect(m_pRescan, &QTimer::timeout, this, &EvdevKeys::TryOpen);
    connect(m_pWatcher, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (!IsOpen()) TryOpen();
    });
}

EvdevKeys::~EvdevKeys() {
    Close();
}

void EvdevKeys::SetDevice(const QString& nameOrPath) {
    Close();
    m_strDevice = nameOrPath;
    SetProblem({});
    if (m_strDevice.isEmpty()) {
        m_pRescan->stop();
        if (!m_pWatcher->directories().isEmpty()) m_pWatcher->removePaths(m_pWatcher->directories());
        return;
    }
    for (const QString& folder : {m_strInputFolder, m_strInputFolder + QStringLiteral("/by-id")})
        if (QFileInfo(folder).isDir() && !m_pWatcher->directories().contains(folder))
            m_pWatcher->addPath(folder);
    TryOpen();
    m_pRescan->start();
}

void EvdevKeys::TryOpen() {
    if (IsOpen() || m_strDevice.isEmpty()) return;
    if (m_strDevice.startsWith('/')) {
        if (QFileInfo::exists(m_strDevice)) OpenPath(m_strDevice);
        return;
    }
    const QDir folder(m_strInputFolder);
    for (const QString& entry : folder.entryList({QStringLiteral("event*")}, QDir::System, QDir::Name)) {
        const QString path = folder.filePath(entry);
        const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) {
            if (errno == EACCES) SetProblem(permissionProblem(path));
            continue;
        }
        const bool bWanted = deviceName(fd) == m_strDevice;
        ::close(fd);
        if (bWanted && OpenPath(path)) return;
    }
}

bool EvdevKeys::OpenPath(const QString& path) {
    FileDescriptor device(::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!device.isOpen()) {
        SetProblem(errno == EACCES ? permissionProblem(path) : systemErrorText(errno) + ": " + path);
        return false;
    }
    // Held only while Tarvik runs: the descriptor's close lets the device go.
    if (ioctl(device.fd(), EVIOCGRAB, 1) < 0) {
        SetProblem(errno == EBUSY ? QStringLiteral("%1 wird von einem anderen Programm belegt.").arg(path)
                                  : QStringLiteral("%1 ist kein Eingabegerät.").arg(path));
        return false;
    }
    m_device = std::move(device);
    m_strOpenPath = path;
    m_pNotifier = new QSocketNotifier(m_device.fd(), QSocketNotifier::Read, this);
    connect(m_pNotifier, &QSocketNotifier::activated, this, &EvdevKeys::ReadEvents);
    m_pRescan->stop();
    m_strProblem.clear();
    Q_EMIT stateChanged();
    return true;
}

void EvdevKeys::Close() {
    if (m_pNotifier) {
        // Possibly inside its own signal: it goes once that returned.
        m_pNotifier->setEnabled(false);
        m_pNotifier->deleteLater();
        m_pNotifier = nullptr;
    }
    if (!m_device.isOpen()) return;
    m_device.close();
    m_strOpenPath.clear();
    Q_EMIT stateChanged();
}

void EvdevKeys::ReadEvents() {
    input_event events[64];
    for (;;) {
        if (!m_device.isOpen()) return;
        const ssize_t got = ::read(m_device.fd(), events, sizeof events);
        if (got < 0 && errno == EAGAIN) return;
        if (got <= 0) {
            // Unplugged (ENODEV) or failed: wait for it to come back.
            Close();
            if (!m_strDevice.isEmpty()) m_pRescan->start();
            return;
        }
        for (size_t i = 0; i < size_t(got) / sizeof(input_event); ++i)
            if (events[i].type == EV_KEY && events[i].value != 2)
                Q_EMIT key(events[i].code, events[i].value == 1);
    }
}

void EvdevKeys::SetProblem(const QString& problem) {
    if (problem == m_strProblem) return;
    m_strProblem = problem;
    Q_EMIT stateChanged();
}
