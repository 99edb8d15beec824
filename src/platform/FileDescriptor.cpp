#include "platform/FileDescriptor.h"

#include <cerrno>
#include <cstring>
#include <poll.h>
#include <unistd.h>

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
        close();
        m_nFd = other.release();
    }
    return *this;
}

int FileDescriptor::release() {
    const int fd = m_nFd;
    m_nFd = -1;
    return fd;
}

void FileDescriptor::close() {
    if (m_nFd >= 0) ::close(m_nFd);
    m_nFd = -1;
}

int FileDescriptor::readWithTimeout(char* buffer, int capacity, int timeoutMs, QString& error) {
    pollfd waiting{m_nFd, POLLIN, 0};
    const int ready = ::poll(&waiting, 1, timeoutMs);
    if (ready < 0) {
        if (errno == EINTR) return 0;
        error = systemErrorText(errno);
        return -1;
    }
    if (ready == 0) return 0;
    if (!(waiting.revents & POLLIN)) {
        // Hang-up or error without data: a pulled USB receiver, a closed pseudo-terminal or socket.
        error = systemErrorText(waiting.revents & POLLNVAL ? EBADF : EIO);
        return -1;
    }
    const ssize_t count = ::read(m_nFd, buffer, static_cast<size_t>(capacity));
    if (count > 0) return static_cast<int>(count);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return 0;
    error = systemErrorText(count < 0 ? errno : EPIPE);
    return -1;
}

bool FileDescriptor::writeAll(const QByteArray& data, QString& error) {
    qsizetype written = 0;
    while (written < data.size()) {
        const ssize_t count =
            ::write(m_nFd, data.constData() + written, static_cast<size_t>(data.size() - written));
        if (count > 0) {
            written += count;
            continue;
        }
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) {
            pollfd waiting{m_nFd, POLLOUT, 0};
            ::poll(&waiting, 1, 100);
            continue;
        }
        error = systemErrorText(count < 0 ? errno : EPIPE);
        return false;
    }
    return true;
}

QString systemErrorText(int errorNumber) {
    return QString::fromLocal8Bit(std::strerror(errorNumber));
}
