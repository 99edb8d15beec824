#include "platform/TcpListener.h"

#include <cerrno>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

QString TcpListener::listen(const QString& host, int port) {
    close();
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_PASSIVE;
    addrinfo* addresses = nullptr;
    const int resolved =
        ::getaddrinfo(host.toUtf8().constData(), QByteArray::number(port).constData(), &hints, &addresses);
    if (resolved != 0) return QString::fromLocal8Bit(::gai_strerror(resolved));
    int failure = EADDRNOTAVAIL;
    for (const addrinfo* address = addresses; address; address = address->ai_next) {
        FileDescriptor socket(::socket(
            address->ai_family, address->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, address->ai_protocol));
        if (!socket.isOpen()) {
            failure = errno;
            continue;
        }
        const int on = 1;
        ::setsockopt(socket.fd(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        if (::bind(socket.fd(), address->ai_addr, address->ai_addrlen) != 0 ||
            ::listen(socket.fd(), 16) != 0) {
            failure = errno;
            continue;
        }
        sockaddr_storage bound{};
        socklen_t length = sizeof bound;
        ::getsockname(socket.fd(), reinterpret_cast<sockaddr*>(&bound), &length);
        m_nPort = bound.ss_family == AF_INET6 ? ntohs(reinterpret_cast<sockaddr_in6&>(bound).sin6_port)
                                              : ntohs(reinterpret_cast<sockaddr_in&>(bound).sin_port);
        m_fd = std::move(socket);
        failure = 0;
        break;
    }
    ::freeaddrinfo(addresses);
    return failure == 0 ? QString() : systemErrorText(failure);
}

FileDescriptor TcpListener::accept() {
    return FileDescriptor(::accept4(m_fd.fd(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}
