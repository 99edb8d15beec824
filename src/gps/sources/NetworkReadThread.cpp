#include "gps/sources/NetworkReadThread.h"

#include "platform/TcpConnection.h"
#include "settings/DevLog.h"

NetworkReadThread::Server NetworkReadThread::gpsd(const QString& address, bool acceptAllTalkers) {
    return {address,
            kGpsdPort,
            QByteArrayLiteral("?WATCH={\"enable\":true,\"nmea\":true}\n"),
            {.m_bEndAtNewline = true, .m_bAcceptAllTalkers = acceptAllTalkers}};
}

NetworkReadThread::Server NetworkReadThread::nmeaTcp(const QString& address, bool acceptAllTalkers) {
    return {address, kNmeaTcpPort, {}, {.m_bAcceptAllTalkers = acceptAllTalkers}};
}

NetworkReadThread::NetworkReadThread(const char* logName, Server server)
    : m_pLogName(logName), m_server(std::move(server)), m_lines(m_server.m_lines) {}

void NetworkReadThread::run(const StopEvent& stop, SentenceSink& sink) {
    devLog("->Start %s", m_pLogName);
    auto fail = [&](const char* what, const QString& error, int leave) {
        sink.reportFailure(QString::fromLatin1(what) + error + " (" + m_server.m_strAddress + ')');
        devLog("->Leave %d %s", leave, m_pLogName);
    };
    QString host;
    int port = 0;
    if (!TcpConnection::splitHostPort(m_server.m_strAddress, m_server.m_nDefaultPort, host, port))
        return fail("Unable to connect to the server: ", QStringLiteral("no host:port"), 2);
    TcpConnection connection;
    if (const QString error = connection.connectTo(host, port, kConnectTimeoutMs); !error.isEmpty())
        return fail("Unable to connect to the server: ", error, 2);
    QString error;
    if (!m_server.m_greeting.isEmpty() && !connection.write(m_server.m_greeting, error))
        return fail("Unable to connect to the server: ", error, 3);
    error = pumpStream(
        [&connection](char* buffer, int capacity, QString& readError) {
            return connection.read(buffer, capacity, kReadTimeoutMs, readError);
        },
        m_lines, stop, sink);
    if (!error.isEmpty()) return fail("Unable to read from the server: ", error, 5);
    devLog("->End %s", m_pLogName);
}
