#include "gps/share/SharedPort.h"

#include <QDir>
#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

QString SharedPort::open(const QString& linkPath) {
    close();
    const auto failure = [&linkPath](const QString& why) {
        return QStringLiteral("Cannot share the receiver at %1: %2").arg(linkPath, why);
    };
    const QFileInfo link(linkPath);
    if (link.exists() && !link.isSymLink()) return failure(QStringLiteral("a file of that name exists"));
    if (!QDir().mkpath(link.absolutePath())) return failure(QStringLiteral("cannot create its folder"));
    if (const QString error = m_terminal.open(); !error.isEmpty()) return failure(error);
    ::fcntl(m_terminal.fd(), F_SETFL, ::fcntl(m_terminal.fd(), F_GETFL) | O_NONBLOCK);
    // The controlling side reports a hang-up only once the device side has been closed: open and
    // close it once, so that "no reader" reads the same before the first reader as after one.
    ::close(::open(QFile::encodeName(devicePath()).constData(), O_RDWR | O_NOCTTY));
    // A new link beside the old one, renamed over it: the path never goes missing for a reader.
    const QByteArray target = QFile::encodeName(linkPath);
    const QByteArray temporary = target + ".new";
    ::unlink(temporary.constData());
    if (::symlink(QFile::encodeName(devicePath()).constData(), temporary.constData()) != 0 ||
        ::rename(temporary.constData(), target.constData()) != 0) {
        const QString error = systemErrorText(errno);
        ::unlink(temporary.constData());
        m_terminal.close();
        return failure(error);
    }
    m_strLinkPath = linkPath;
    return {};
}

void SharedPort::close() {
    if (!m_strLinkPath.isEmpty() && QFileInfo(m_strLinkPath).symLinkTarget() == devicePath())
        QFile::remove(m_strLinkPath);
    m_strLinkPath.clear();
    m_terminal.close();
}

bool SharedPort::readerPresent() const {
    pollfd probe{fd(), 0, 0};
    return ::poll(&probe, 1, 0) >= 0 && !(probe.revents & (POLLHUP | POLLERR | POLLNVAL));
}

void SharedPort::discardQueued() {
    ::tcflush(fd(), TCIOFLUSH);
    char buffer[256];
    while (::read(fd(), buffer, sizeof buffer) > 0) {
    }
}

int SharedPort::queuedBytes() const {
    // The queue lies on the device side; only an open device reports it.
    const int device = ::open(QFile::encodeName(devicePath()).constData(), O_RDONLY | O_NOCTTY | O_NONBLOCK);
    if (device < 0) return 0;
    int queued = 0;
    if (::ioctl(device, FIONREAD, &queued) != 0) queued = 0;
    ::close(device);
    return queued;
}
