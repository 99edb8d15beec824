#pragma once

#include "platform/FileDescriptor.h"

#include <QByteArray>
#include <QString>
#include <termios.h>

// The controlling side of a pseudo-terminal: what a receiver writes comes out at devicePath() for
// any program that opens it as a serial port. Used by the fake receiver and the serial tests.
class PseudoTerminal {
public:
    // Creates a new pair in raw mode; empty text on success, else the system's error text.
    QString open();
    // "/dev/pts/N"; empty before open().
    const QString& devicePath() const { return m_strDevicePath; }
    bool write(const QByteArray& bytes, QString& error) { return m_master.writeAll(bytes, error); }
    // Up to `capacity` bytes that the program on the other side wrote; see FileDescriptor.
    int read(char* buffer, int capacity, int timeoutMs, QString& error) {
        return m_master.readWithTimeout(buffer, capacity, timeoutMs, error);
    }
    // The line settings that the program on the other side set (baud rate, 8N1, raw).
    bool readDeviceSettings(termios& settings) const;
    // The device disappears, as a pulled receiver does.
    void close();
    bool isOpen() const { return m_master.isOpen(); }
    int fd() const { return m_master.fd(); }

private:
    FileDescriptor m_master;
    QString m_strDevicePath;
};
