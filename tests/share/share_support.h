#pragma once

#include "platform/FileDescriptor.h"
#include "platform/TcpConnection.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <fcntl.h>
#include <gtest/gtest.h>

// A reader of the shared stream: a TCP client or the terminal opened by its link.
class StreamReader {
public:
    static StreamReader tcp(int port) {
        StreamReader reader;
        TcpConnection connection;
        EXPECT_EQ(connection.connectTo("127.0.0.1", port, 2000), QString());
        reader.m_tcp = std::move(connection);
        return reader;
    }
    static StreamReader terminal(const QString& link) {
        StreamReader reader;
        reader.m_device = FileDescriptor(::open(QFile::encodeName(link).constData(), O_RDONLY | O_NOCTTY));
        EXPECT_TRUE(reader.m_device.isOpen()) << link.toStdString();
        return reader;
    }
    // Reads until `count` bytes came, the other side ended or `timeoutMs` passed.
    QByteArray readUpTo(qsizetype count, int timeoutMs = 5000) {
        QByteArray got;
        QElapsedTimer timer;
        timer.start();
        char buffer[4096];
        while (got.size() < count && timer.elapsed() < timeoutMs) {
            QString error;
            const int n = m_tcp.isOpen() ? m_tcp.read(buffer, sizeof buffer, 50, error)
                                         : m_device.readWithTimeout(buffer, sizeof buffer, 50, error);
            if (n < 0) break;
            got.append(buffer, n);
        }
        return got;
    }
    void close() {
        m_tcp.close();
        m_device.close();
    }

private:
    TcpConnection m_tcp;
    FileDescriptor m_device;
};
