#pragma once

#include <QByteArray>
#include <QStringList>
#include <atomic>
#include <mutex>
#include <thread>

// A small HTTP server on 127.0.0.1 for the tests, on a thread of its own so that the code under
// test may block while it answers. It records each request line and answers every request alike.
class LoopbackHttpServer {
public:
    enum class Mode { Answer, NeverAnswer };

    LoopbackHttpServer();
    ~LoopbackHttpServer();

    void SetAnswer(int nStatus, QByteArray body);
    void SetMode(Mode mode) { m_mode = mode; }
    int Port() const { return m_nPort; }
    QString Base() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_nPort); }
    QStringList Requests() const;

    // A loopback port on which nobody listens: connections are refused.
    static int ClosedPort();

private:
    void Serve();
    void Handle(int nClient);

    int m_nListen = -1;
    int m_nPort = 0;
    std::atomic<bool> m_bStop{false};
    std::atomic<Mode> m_mode{Mode::Answer};
    mutable std::mutex m_mutex;
    int m_nStatus = 200;
    QByteArray m_body = "OK\n";
    QStringList m_requests;
    std::thread m_thread;
};
