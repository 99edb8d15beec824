#pragma once

#include "gps/sources/LineAssembler.h"
#include "gps/sources/SentenceReader.h"
#include "platform/SerialPort.h"

#include <mutex>

#include <QString>

// Reads a GPS receiver on a serial port (see SerialPort): 8N1 raw at the given baud rate, reads of
// 20 ms, the splitter driver's "?" data skipped. A port that cannot be opened or set up, or that
// fails while reading (a receiver pulled out), is reported and the reader ends; the supervision
// tick's reconnect starts a new one.
class PortReadThread : public SentenceReader {
public:
    static constexpr int kReadTimeoutMs = 20;

    PortReadThread(const QString& devicePath, int baudRate, bool acceptAllTalkers);

    void run(const StopEvent& stop, SentenceSink& sink) override;
    bool writeToDevice(const QByteArray& bytes) override;

private:
    QString m_strDevicePath;
    int m_nBaudRate;
    LineAssembler m_lines;
    std::mutex m_portMutex;
    SerialPort* m_pOpenPort = nullptr; // while run() reads it
};
