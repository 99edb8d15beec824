#include "LoopbackHttpServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int listenOnLoopback(int& port) {
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
    listen(fd, 16);
    socklen_t length = sizeof address;
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
    port = ntohs(address.sin_port);
    return fd;
}

bool waitReadable(int fd, int milliseconds) {
    pollfd p{fd, POLLIN, 0};
    return poll(&p, 1, milliseconds) > 0;
}

} // namespace

LoopbackHttpServer::LoopbackHttpServer() {
    m_nListen = listenOnLoopback(m_nPort);
    m_thread = std::thread([this] { Serve(); });
}

LoopbackHttpServer::~LoopbackHttpServer() {
    m_bStop = true;
    m_thread.join();
    close(m_nListen);
}

int LoopbackHttpServer::ClosedPort() {
    int port = 0;
    close(listenOnLoopback(port));
    return port;
}

void LoopbackHttpServer::SetAnswer(int nStatus, QByteArray body) {
    std::lock_guard lock(m_mutex);
    m_nStatus = nStatus;
    m_body = std::move(body);
}

QStringList LoopbackHttpServer::Requests() const {
    std::lock_guard lock(m_mutex);
    return m_requests;
}

void LoopbackHttpServer::Serve() {
    while (!m_bStop) {
        if (!waitReadable(m_nListen, 20)) continue;
        const int client = accept4(m_nListen, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) continue;
        Handle(client);
        close(client);
    }
}

void LoopbackHttpServer::Handle(int nClient) {
    QByteArray request;
    char buffer[4096];
    while (!request.contains("\r\n\r\n") && !m_bStop && waitReadable(nClient, 2000)) {
        const ssize_t n = read(nClient, buffer, sizeof buffer);
        if (n <= 0) return;
        request.append(buffer, n);
    }
    int status = 0;
    QByteArray body;
    {
        std::lock_guard lock(m_mutex);
        m_requests << QString::fromLatin1(request.left(request.indexOf("\r\n")));
        status = m_nStatus;
        body = m_body;
    }
    if (m_mode == Mode::NeverAnswer) {
        while (!m_bStop && (!waitReadable(nClient, 20) || read(nClient, buffer, sizeof buffer) > 0)) {
        }
        return;
    }
    QByteArray answer = "HTTP/1.1 " + QByteArray::number(status) +
                        " X\r\nContent-Length: " + QByteArray::number(body.size()) +
                        "\r\nConnection: close\r\n\r\n" + body;
    for (qsizetype sent = 0; sent < answer.size();) {
        const ssize_t n =
            send(nClient, answer.constData() + sent, size_t(answer.size() - sent), MSG_NOSIGNAL);
        if (n <= 0) return; // the client stopped reading
        sent += n;
    }
}
