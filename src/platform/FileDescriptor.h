#pragma once

#include <QByteArray>
#include <QString>

// Owns one file descriptor of a device or socket and reads it with a time-out, the way the reader
// threads need it: a read that waits a little and then returns what came, and a clear difference
// between "nothing came" and "the other side is gone".
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : m_nFd(fd) {}
    ~FileDescriptor() { close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : m_nFd(other.release()) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    bool isOpen() const { return m_nFd >= 0; }
    int fd() const { return m_nFd; }
    int release();
    void close();

    // Waits up to `timeoutMs` for data and reads up to `capacity` bytes. Returns the number of bytes
    // (0 when nothing came in time), or -1 when the device or connection failed or was closed by the
    // other side; then `error` holds the system's text.
    int readWithTimeout(char* buffer, int capacity, int timeoutMs, QString& error);
    // Writes everything, waiting while the other side is full; false with `error` on a failure.
    bool writeAll(const QByteArray& data, QString& error);

private:
    int m_nFd = -1;
};

// The system's text for an errno value.
QString systemErrorText(int errorNumber);
