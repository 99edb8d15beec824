#pragma once

#include "gps/sources/SentenceReader.h"
#include "gps/sources/StopEvent.h"

#include <QThread>
#include <memory>

// One running reader with its own stop event.
class ReaderThread : public QThread {
public:
    // How long a stop waits for the reader: `rounds` × `intervalMs` (about 10 s by default).
    struct StopRounds {
        int m_nRounds = 100;
        int m_nIntervalMs = 100;
    };

    ReaderThread(std::unique_ptr<SentenceReader> reader, SentenceSink& sink);
    ~ReaderThread() override;

    // Sets the stop event and waits for the reader to end, handling this (the UI) thread's events
    // meanwhile: the reader may be waiting in a hand-over to this very thread. A reader that is
    // still running after all rounds is terminated ("!!!!TerminateThread"). Returns false then.
    bool stopAndWait(StopRounds rounds);
    // See SentenceReader::writeToDevice.
    bool writeToDevice(const QByteArray& bytes) { return m_pReader->writeToDevice(bytes); }

protected:
    void run() override;

private:
    std::unique_ptr<SentenceReader> m_pReader;
    SentenceSink& m_sink;
    StopEvent m_stop;
};
