#include "gps/sources/PortReadThread.h"

#include "platform/SerialPort.h"
#include "settings/DevLog.h"

PortReadThread::PortReadThread(const QString& devicePath, int baudRate, bool acceptAllTalkers)
    : m_strDevicePath(devicePath), m_nBaudRate(baudRate),
      m_lines({.m_bSkipSplitterData = true, .m_bAcceptAllTalkers = acceptAllTalkers}) {}

void PortReadThread::run(const StopEvent& stop, SentenceSink& sink) {
    devLog("->Start PortReadThread");
    // The device is named behind the system's text, so the user sees which path to fix.
    auto report = [&](const char* what, const QString& error) {
        sink.reportFailure(QString::fromLatin1(what) + error + " (" + m_strDevicePath + ')');
    };
    SerialPort port;
    if (const QString error = port.open(m_strDevicePath); !error.isEmpty()) {
        report("Unable to open the port: ", error);
        devLog("->Leave 2 PortReadThread");
        return;
    }
    if (const QString error = port.configure(m_nBaudRate); !error.isEmpty()) {
        report("Unable to configure the serial port: ", error);
        devLog("->Leave 3 PortReadThread");
        return;
    }
    if (const QString error = port.setReadTimeout(kReadTimeoutMs); !error.isEmpty()) {
        report("Unable to set the time-out parameters: ", error);
        devLog("->Leave 4 PortReadThread");
        return;
    }
    {
        const std::lock_guard lock(m_portMutex);
        m_pOpenPort = &port;
    }
    const QString failure = pumpStream(
        [&port](char* buffer, int capacity, QString& error) { return port.read(buffer, capacity, error); },
        m_lines, stop, sink);
    {
        const std::lock_guard lock(m_portMutex);
        m_pOpenPort = nullptr;
    }
    if (!failure.isEmpty()) {
        report("Unable to read from the port: ", failure);
        devLog("!!!!Leave 5 PortReadThread");
        return;
    }
    devLog("->End PortReadThread");
}

bool PortReadThread::writeToDevice(const QByteArray& bytes) {
    const std::lock_guard lock(m_portMutex);
    return m_pOpenPort && m_pOpenPort->write(bytes);
}
