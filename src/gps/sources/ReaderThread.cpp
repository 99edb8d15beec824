#include "gps/sources/ReaderThread.h"

#include "settings/DevLog.h"

#include <QCoreApplication>

ReaderThread::ReaderThread(std::unique_ptr<SentenceReader> reader, SentenceSink& sink)
    : m_pReader(std::move(reader)), m_sink(sink) {}

ReaderThread::~ReaderThread() {
    stopAndWait({});
}

void ReaderThread::run() {
    m_pReader->run(m_stop, m_sink);
}

bool ReaderThread::stopAndWait(StopRounds rounds) {
    m_stop.set();
    for (int round = 0; round < rounds.m_nRounds && !isFinished(); ++round) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        if (wait(QDeadlineTimer(rounds.m_nIntervalMs))) break;
    }
    if (!isRunning()) return true;
    devLog("!!!!TerminateThread");
    terminate();
    wait();
    return false;
}
