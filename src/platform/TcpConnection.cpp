#include "platform/TcpConnection.h"

#include <cerrno>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>

namespace {

// Connects one resolved address without blocking longer than `timeoutMs`; 0 or an errno value.
int connectWithin(const addrinfo& address, int timeoutMs, FileDescriptor& socket) {
    socket = FileDescriptor(
        ::socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, address.ai_protocol));
    if (!socket.isOpen()) return errno;
    if (::connect(socket.fd(), address.ai_addr, address.ai_addrlen) == 0) return 0;
    if (errno != EINPROGRESS) return errno;
    pollfd waiting{socket.fd(), POLLOUT, 0};
    if (::poll(&waiting, 1, timeoutMs) <= 0) return ETIMEDOUT;
    int result = 0;
    socklen_t length = sizeof result;
    ::getsockopt(socket.fd(), SOL_SOCKET, SO_ERROR, &result, &length);
    return result;
}

} // namespace

bool TcpConnection::splitHostPort(const QString& text, int defaultPort, QString& host, int& port) {
    const QString trimmed = text.trimmed();
    QString portText;
    if (trimmed.startsWith('[')) {
        const qsizetype close = trimmed.indexOf(']');
        if (close < 0) return false;
        host = trimmed.mid(1, close - 1);
        const QString rest = trimmed.mid(close + 1);
        if (!rest.isEmpty() && !rest.startsWith(':')) return false;
        portText = rest.mid(1);
    } else if (trimmed.count(':') == 1) {
        host = trimmed.section(':', 0, 0);
        portText = trimmed.section(':', 1);
    } else {
        host = trimmed;
    }
    if (host.isEmpty()) return false;
    if (portText.isEmpty()) {
        port = defaultPort;
        return port > 0;
    }
    bool ok = false;
    port = portText.toInt(&ok);
    return ok && port > 0 && port < 65536;
}

QString TcpConnection::connectTo(const QString& host, int port, int timeoutMs) {
    close();
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* addresses = nullptr;
    const int resolved =
        ::getaddrinfo(host.toUtf8().constData(), QByteArray::number(port).constData(), &hints, &addresses);
    if (resolved != 0) return QString::fromLocal8Bit(::gai_strerror(resolved));
    int failure = ECONNREFUSED;
    for (const addrinfo* address = addresses; address; address = address->ai_next) {
        failure = connectWithin(*address, timeoutMs, m_fd);
        if (failure == 0) break;
        m_fd.close();
    }
    ::freeaddrinfo(addresses);
    return failure == 0 ? QString() : systemErrorText(failure);
}
