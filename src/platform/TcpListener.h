#pragma once

#include "platform/FileDescriptor.h"

#include <QString>

// A listening TCP socket that hands out non-blocking client connections (the shared NMEA stream).
class TcpListener {
public:
    // Binds "host" (an address or name; "0.0.0.0" for all interfaces) and `port` (0: any free port)
    // and listens; empty text on success, else the reason.
    QString listen(const QString& host, int port);
    // The port bound, after listen().
    int port() const { return m_nPort; }
    int fd() const { return m_fd.fd(); }
    // The next waiting client, non-blocking; not open when none waits.
    FileDescriptor accept();
    void close() { m_fd.close(); }
    bool isOpen() const { return m_fd.isOpen(); }

private:
    FileDescriptor m_fd;
    int m_nPort = 0;
};
