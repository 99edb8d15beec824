#pragma once

#include "gps/LogDecoder.h"
#include "gps/sources/LineAssembler.h"
#include "gps/sources/SentenceReader.h"

#include <QFile>
#include <functional>
#include <memory>

// Replays a recorded log as live data: only "$GP" sentences, paced by their time stamps
// (ReplayPacer), ended by the end of the file; a replay does not loop. UTF-16 logs are decoded.
class FileReadThread : public SentenceReader {
public:
    // Waits `milliseconds` unless the stop event is set first; true when it is set. Injected so
    // that tests can see the pauses without waiting for them.
    using Pause = std::function<bool(const StopEvent& stop, int milliseconds)>;
    static bool waitOnStopEvent(const StopEvent& stop, int milliseconds);

    // `file` is open for reading. `simulationSpeed`: replay speed factor (0 or less counts as 1).
    FileReadThread(std::unique_ptr<QFile> file, int simulationSpeed, bool acceptAllTalkers,
                   Pause pause = waitOnStopEvent);

    void run(const StopEvent& stop, SentenceSink& sink) override;

private:
    std::unique_ptr<QFile> m_pFile;
    int m_nSimulationSpeed;
    LogDecoder m_decoder;
    LineAssembler m_lines;
    Pause m_pause;
};
