#include "gps/sources/FileReadThread.h"

#include "gps/sources/ReplayPacer.h"
#include "gps/sources/StopEvent.h"
#include "settings/DevLog.h"

#include <cstring>

bool FileReadThread::waitOnStopEvent(const StopEvent& stop, int milliseconds) {
    return stop.waitFor(milliseconds);
}

FileReadThread::FileReadThread(std::unique_ptr<QFile> file, int simulationSpeed, bool acceptAllTalkers,
                               Pause pause)
    : m_pFile(std::move(file)), m_nSimulationSpeed(simulationSpeed),
      m_lines({.m_bAcceptAllTalkers = acceptAllTalkers}), m_pause(std::move(pause)) {}

void FileReadThread::run(const StopEvent& stop, SentenceSink& sink) {
    devLog("->Start FileReadThread");
    ReplayPacer pacer(m_nSimulationSpeed, false);
    bool stopped = false;
    auto onLine = [&](const char* line, int length) {
        if (stopped || std::strncmp(line, "$GP", 3) != 0) return;
        // A "?" is the splitter driver's in-band data, recorded along with the sentence.
        if (const void* mark = std::memchr(line, '?', static_cast<size_t>(length)))
            length = static_cast<int>(static_cast<const char*>(mark) - line);
        sink.handOver(line, length);
        const int pause = pacer.pauseAfter(line, length);
        if (pause > 0 && m_pause(stop, pause)) stopped = true;
    };
    char buffer[256];
    for (;;) {
        const qint64 count = m_pFile->read(buffer, sizeof buffer);
        if (count <= 0) break;
        m_lines.feed(buffer, static_cast<int>(m_decoder.decode(buffer, static_cast<size_t>(count))), onLine);
        if (stopped || stop.isSet()) {
            devLog("->Leave 2 FileReadThread");
            return;
        }
    }
    devLog("->End FileReadThread");
}
