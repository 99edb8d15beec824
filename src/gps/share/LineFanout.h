#pragma once

#include "gps/share/SharedPort.h"
#include "platform/TcpListener.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

// Passes lines on, unchanged and in order, to every reader of the shared pseudo-terminal and of a
// TCP server of raw NMEA. A thread of its own does all the writing, so publish() never waits on a
// reader: each reader has a backlog, and one whose backlog outgrows kBacklogLimit is cut off (a
// TCP client is disconnected, the terminal's reader loses the backlog and goes on with fresh
// lines). Lines are only kept for readers that are there: a reader that comes (back) starts with
// the next line.
class LineFanout {
public:
    static constexpr int kBacklogLimit = 64 * 1024;

    struct Endpoints {
        QString m_strLinkPath;  // the terminal's stable path; empty: no terminal
        QString m_strTcpHost;   // address to listen on ("127.0.0.1", "0.0.0.0"); empty: no server
        int m_nTcpPort = 10110; // 0: any free port
    };

    // What the writing thread last saw.
    struct Status {
        int m_nReaders = 0;      // TCP clients, and the terminal while a program holds it open
        int m_nDropped = 0;      // readers cut off for a full backlog
        int m_nPendingBytes = 0; // lines not yet taken by every reader, the system's buffers included
        bool m_bRoom = true;     // no reader that still takes lines is more than a little behind
    };

    LineFanout() = default;
    ~LineFanout() { stop(); }
    LineFanout(const LineFanout&) = delete;
    LineFanout& operator=(const LineFanout&) = delete;

    // Opens what `endpoints` asks for and starts the writing thread; empty text on success, else
    // one line for the user and nothing stays open.
    QString start(const Endpoints& endpoints);
    // Disconnects every reader, closes the server and the terminal and removes its link.
    void stop();
    bool running() const { return m_thread.joinable(); }
    // From any thread; never waits for a reader.
    void publish(const QByteArray& line);

    QString devicePath() const { return m_port.devicePath(); }
    int tcpPort() const { return m_listener.isOpen() ? m_listener.port() : 0; }
    Status status() const;

    // For a player that goes as fast as the readers take the lines: waits until the readers that
    // still take lines are nearly caught up (a stuck one is not waited for; it gets cut off).
    void waitForRoom();
    // Waits until every line published so far has been taken; false after `timeoutMs`.
    bool waitDrained(int timeoutMs);
    // Waits until the status satisfies `ready`; false after `timeoutMs`.
    bool waitForStatus(const std::function<bool(const Status&)>& ready, int timeoutMs);

private:
    struct Reader;
    void run();
    void acceptClients(std::vector<std::unique_ptr<Reader>>& clients, int64_t now);
    template <class Predicate> bool waitFor(int timeoutMs, Predicate&& ready);

    SharedPort m_port;
    TcpListener m_listener;
    int m_nWakeFd = -1; // an eventfd: publish() and stop() wake the writing thread
    std::thread m_thread;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    QList<QByteArray> m_incoming;
    int m_nIncomingBytes = 0;
    bool m_bStop = false;
    Status m_status;
};
