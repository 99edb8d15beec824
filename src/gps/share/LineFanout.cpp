#include "gps/share/LineFanout.h"

#include "settings/DevLog.h"

#include <cerrno>
#include <chrono>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

// Lines that publish() may queue for the writing thread before a fast player waits.
constexpr int kIncomingRoom = 16 * 1024;
// A reader this far behind holds a fast player back, unless it has taken nothing for kStuckMs.
constexpr int kBehind = LineFanout::kBacklogLimit / 4;
constexpr int64_t kStuckMs = 500;
// Kept small so that the bound on a reader's backlog is not hidden in the system's buffers.
constexpr int kSocketBuffer = 32 * 1024;

int64_t nowMs() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

struct LineFanout::Reader {
    FileDescriptor m_socket; // a TCP client; not open for the terminal
    int m_nFd = -1;
    QByteArray m_backlog;
    int m_nSent = 0; // bytes of m_backlog already written
    int64_t m_nProgressMs = 0;

    int waiting() const { return int(m_backlog.size()) - m_nSent; }
    void clear() {
        m_backlog.clear();
        m_nSent = 0;
    }
    // Writes what the reader takes without waiting; false when the reader is gone.
    bool flush(int64_t now) {
        while (waiting() > 0) {
            const ssize_t written =
                m_socket.isOpen()
                    ? ::send(m_nFd, m_backlog.constData() + m_nSent, size_t(waiting()), MSG_NOSIGNAL)
                    : ::write(m_nFd, m_backlog.constData() + m_nSent, size_t(waiting()));
            if (written < 0) return errno == EAGAIN || errno == EINTR;
            m_nSent += int(written);
            m_nProgressMs = now;
        }
        clear();
        return true;
    }
};

QString LineFanout::start(const Endpoints& endpoints) {
    stop();
    if (!endpoints.m_strLinkPath.isEmpty()) {
        if (const QString error = m_port.open(endpoints.m_strLinkPath); !error.isEmpty()) return error;
    }
    if (!endpoints.m_strTcpHost.isEmpty()) {
        if (const QString error = m_listener.listen(endpoints.m_strTcpHost, endpoints.m_nTcpPort);
            !error.isEmpty()) {
            m_port.close();
            return QStringLiteral("Cannot share the receiver on %1:%2: %3")
                .arg(endpoints.m_strTcpHost)
                .arg(endpoints.m_nTcpPort)
                .arg(error);
        }
    }
    m_nWakeFd = ::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    m_bStop = false;
    m_incoming.clear();
    m_nIncomingBytes = 0;
    m_status = {};
    m_thread = std::thread([this] { run(); });
    devLog("->Start sharing (%s, port %d)", devicePath().toUtf8().constData(), tcpPort());
    return {};
}

void LineFanout::stop() {
    if (m_thread.joinable()) {
        {
            const std::lock_guard lock(m_mutex);
            m_bStop = true;
        }
        const uint64_t one = 1;
        (void)!::write(m_nWakeFd, &one, sizeof one);
        m_thread.join();
        devLog("->End sharing");
    }
    if (m_nWakeFd >= 0) ::close(m_nWakeFd);
    m_nWakeFd = -1;
    m_listener.close();
    m_port.close();
}

void LineFanout::publish(const QByteArray& line) {
    if (!running()) return;
    {
        const std::lock_guard lock(m_mutex);
        m_incoming.append(line);
        m_nIncomingBytes += int(line.size());
    }
    const uint64_t one = 1;
    (void)!::write(m_nWakeFd, &one, sizeof one);
}

LineFanout::Status LineFanout::status() const {
    const std::lock_guard lock(m_mutex);
    return m_status;
}

template <class Predicate> bool LineFanout::waitFor(int timeoutMs, Predicate&& ready) {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return ready(); });
}

void LineFanout::waitForRoom() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock,
                   [this] { return m_bStop || (m_status.m_bRoom && m_nIncomingBytes < kIncomingRoom); });
}

bool LineFanout::waitDrained(int timeoutMs) {
    const int64_t end = nowMs() + timeoutMs;
    if (!waitFor(timeoutMs, [this] { return m_nIncomingBytes == 0 && m_status.m_nPendingBytes == 0; }))
        return false;
    // What the terminal's reader has not read yet lies in the device; wait for it too.
    while (m_port.isOpen() && m_port.readerPresent() && m_port.queuedBytes() > 0) {
        if (nowMs() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

bool LineFanout::waitForStatus(const std::function<bool(const Status&)>& ready, int timeoutMs) {
    return waitFor(timeoutMs, [&] { return ready(m_status); });
}

void LineFanout::acceptClients(std::vector<std::unique_ptr<Reader>>& clients, int64_t now) {
    for (FileDescriptor socket = m_listener.accept(); socket.isOpen(); socket = m_listener.accept()) {
        ::setsockopt(socket.fd(), SOL_SOCKET, SO_SNDBUF, &kSocketBuffer, sizeof kSocketBuffer);
        auto client = std::make_unique<Reader>();
        client->m_nFd = socket.fd();
        client->m_socket = std::move(socket);
        client->m_nProgressMs = now;
        clients.push_back(std::move(client));
    }
}

void LineFanout::run() {
    std::vector<std::unique_ptr<Reader>> clients;
    Reader terminal;
    terminal.m_nFd = m_port.fd();
    bool terminalPresent = false;
    int dropped = 0;
    bool clientsWaiting = false;
    for (;;) {
        QList<QByteArray> lines;
        {
            const std::lock_guard lock(m_mutex);
            if (m_bStop) break;
            lines.swap(m_incoming);
            m_nIncomingBytes = 0;
        }
        const int64_t now = nowMs();
        // Lines go to the readers that were there when they came; a reader that arrives now
        // starts with the next line.
        for (auto& client : clients) {
            for (const QByteArray& line : lines)
                client->m_backlog += line;
        }
        if (terminalPresent) {
            for (const QByteArray& line : lines)
                terminal.m_backlog += line;
        }
        if (clientsWaiting) acceptClients(clients, now);
        clientsWaiting = false;
        const bool present = m_port.isOpen() && m_port.readerPresent();
        if (present && !terminalPresent) {
            m_port.discardQueued();
            terminal.m_nProgressMs = now;
        }
        if (!present) terminal.clear();
        terminalPresent = present;

        std::vector<Reader*> readers;
        for (auto& client : clients)
            readers.push_back(client.get());
        if (terminalPresent) readers.push_back(&terminal);
        for (Reader* reader : readers) {
            if (!reader->flush(now) && reader == &terminal) terminal.clear();
            if (reader->waiting() <= kBacklogLimit) continue;
            ++dropped;
            devLog("!!!!Sharing: a reader %d bytes behind is cut off", reader->waiting());
            if (reader == &terminal) {
                terminal.clear();
                m_port.discardQueued();
            } else {
                reader->m_socket.close();
            }
        }
        std::erase_if(clients, [](const auto& client) { return !client->m_socket.isOpen(); });

        Status status;
        status.m_nDropped = dropped;
        status.m_nReaders = int(clients.size()) + (terminalPresent ? 1 : 0);
        bool systemBuffersBusy = false;
        auto account = [&](const Reader& reader) {
            status.m_nPendingBytes += reader.waiting();
            if (reader.waiting() > kBehind && now - reader.m_nProgressMs < kStuckMs) status.m_bRoom = false;
        };
        for (const auto& client : clients) {
            account(*client);
            int queued = 0;
            if (::ioctl(client->m_nFd, SIOCOUTQ, &queued) == 0 && queued > 0) {
                status.m_nPendingBytes += queued;
                systemBuffersBusy = true;
            }
        }
        if (terminalPresent) account(terminal);
        {
            const std::lock_guard lock(m_mutex);
            m_status = status;
        }
        m_changed.notify_all();

        std::vector<pollfd> waits{{m_nWakeFd, POLLIN, 0}};
        if (m_listener.isOpen()) waits.push_back({m_listener.fd(), POLLIN, 0});
        for (const auto& client : clients)
            waits.push_back({client->m_nFd, short(POLLIN | (client->waiting() > 0 ? POLLOUT : 0)), 0});
        if (terminalPresent)
            waits.push_back({terminal.m_nFd, short(POLLIN | (terminal.waiting() > 0 ? POLLOUT : 0)), 0});
        // Nothing signals a program opening the terminal, nor the system's buffers emptying: look again soon.
        const bool watchTerminal = m_port.isOpen() && !terminalPresent;
        const int timeoutMs = systemBuffersBusy ? 10 : watchTerminal || status.m_nReaders > 0 ? 100 : -1;
        if (::poll(waits.data(), waits.size(), timeoutMs) < 0 && errno != EINTR) break;

        char scratch[512];
        if (waits[0].revents & POLLIN) {
            uint64_t count = 0;
            (void)!::read(m_nWakeFd, &count, sizeof count);
        }
        size_t next = 1;
        if (m_listener.isOpen() && (waits[next++].revents & POLLIN)) clientsWaiting = true;
        // What readers send is not for the receiver: read and dropped, so that they never block.
        for (size_t i = 0; i < clients.size(); ++i) {
            const short events = waits[next++].revents;
            if (!(events & (POLLIN | POLLHUP | POLLERR))) continue;
            const ssize_t got = ::recv(clients[i]->m_nFd, scratch, sizeof scratch, MSG_DONTWAIT);
            if (got == 0 || (got < 0 && errno != EAGAIN && errno != EINTR)) clients[i]->m_socket.close();
        }
        if (terminalPresent && (waits[next].revents & POLLIN)) {
            while (::read(terminal.m_nFd, scratch, sizeof scratch) > 0) {
            }
        }
        std::erase_if(clients, [](const auto& client) { return !client->m_socket.isOpen(); });
    }
    {
        const std::lock_guard lock(m_mutex);
        m_status = {};
    }
    m_changed.notify_all();
}
