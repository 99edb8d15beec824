#pragma once

#include "platform/FileDescriptor.h"

#include <QByteArray>
#include <QString>

// A serial device (a USB receiver, a Bluetooth rfcomm port, a pseudo-terminal) set up the way a
// GPS receiver is read: raw 8N1, DTR and RTS on, no flow control. Each step returns an empty text
// on success, else the system's error text, so that the caller can say which step failed.
class SerialPort {
public:
    // Opens an existing device for reading and writing, exclusively (later opens by others fail).
    QString open(const QString& devicePath);
    // Baud rate in bits per second (4800, 9600 ... 4000000); 8 data bits, no parity, one stop bit,
    // no flow control, no character translation. A rate the system does not know fails.
    QString configure(int baudRate);
    // How long one read waits for the first byte, in milliseconds.
    QString setReadTimeout(int milliseconds);

    // Up to `capacity` bytes; 0 when nothing came within the read time-out, -1 when the device
    // failed or disappeared (`error` then holds the system's text).
    int read(char* buffer, int capacity, QString& error);
    // Writes all bytes (an in-band command to a splitter driver); false when the device refused them.
    bool write(const QByteArray& bytes);
    void close() { m_fd.close(); }
    bool isOpen() const { return m_fd.isOpen(); }

private:
    FileDescriptor m_fd;
    int m_nReadTimeoutMs = 0;
};
