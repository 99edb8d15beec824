#pragma once

#include "gps/sources/LineAssembler.h"
#include "gps/sources/SentenceReader.h"

#include <QByteArray>
#include <QString>

// Reads NMEA from a TCP server: gpsd (which is first asked for raw NMEA) or a plain NMEA stream of
// a phone tether or a marine multiplexer. A server that cannot be reached or closes the connection
// is reported and the reader ends; the supervision tick's reconnect starts a new one.
class NetworkReadThread : public SentenceReader {
public:
    static constexpr int kConnectTimeoutMs = 3000;
    static constexpr int kReadTimeoutMs = 20;
    // gpsd's default port, and the port registered for NMEA 0183 over TCP.
    static constexpr int kGpsdPort = 2947;
    static constexpr int kNmeaTcpPort = 10110;

    struct Server {
        QString m_strAddress;   // "host:port" as the user set it
        int m_nDefaultPort = 0; // when the address names no port
        QByteArray m_greeting;  // sent once after connecting
        LineAssembler::Options m_lines;
    };

    // gpsd in raw NMEA mode: its JSON answers are dropped, each "\n" ends a sentence.
    static Server gpsd(const QString& address, bool acceptAllTalkers);
    // A raw NMEA stream, assembled as a serial port is, but without the splitter driver's "?" data.
    static Server nmeaTcp(const QString& address, bool acceptAllTalkers);

    // `logName` names the reader in the developer log ("GpsdReadThread").
    NetworkReadThread(const char* logName, Server server);

    void run(const StopEvent& stop, SentenceSink& sink) override;

private:
    const char* m_pLogName;
    Server m_server;
    LineAssembler m_lines;
};
