#pragma once

#include "platform/FileDescriptor.h"

#include <QByteArray>
#include <QString>

// A TCP client connection to "host:port" (gpsd, a phone's NMEA tether, a marine multiplexer).
class TcpConnection {
public:
    // "host:port", "[v6-address]:port" or "host" with `defaultPort`. False when no port can be read.
    static bool splitHostPort(const QString& text, int defaultPort, QString& host, int& port);

    // Resolves the host and connects within `timeoutMs`; empty text on success, else the reason.
    QString connectTo(const QString& host, int port, int timeoutMs);
    bool write(const QByteArray& bytes, QString& error) { return m_fd.writeAll(bytes, error); }
    // See FileDescriptor::readWithTimeout; -1 also when the server closed the connection.
    int read(char* buffer, int capacity, int timeoutMs, QString& error) {
        return m_fd.readWithTimeout(buffer, capacity, timeoutMs, error);
    }
    void close() { m_fd.close(); }
    bool isOpen() const { return m_fd.isOpen(); }

private:
    FileDescriptor m_fd;
};
