#pragma once

#include "gps/sources/GpsSourceTarget.h"
#include "gps/sources/SentenceReader.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QList>
#include <QStringList>
#include <QThread>
#include <mutex>

// A sink that keeps what a reader delivered; safe to read while the reader runs.
class RecordingSink : public SentenceSink {
public:
    void handOver(const char* line, int length) override {
        std::lock_guard lock(m_mutex);
        m_lines.append(QByteArray(line, length));
    }
    void reportFailure(const QString& text) override {
        std::lock_guard lock(m_mutex);
        m_failures.append(text);
    }
    QList<QByteArray> lines() const {
        std::lock_guard lock(m_mutex);
        return m_lines;
    }
    QStringList failures() const {
        std::lock_guard lock(m_mutex);
        return m_failures;
    }

private:
    mutable std::mutex m_mutex;
    QList<QByteArray> m_lines;
    QStringList m_failures;
};

// Stands in for the document (UI thread only): keeps what the controller hands it.
class RecordingTarget : public GpsSourceTarget {
public:
    void HandleSentence(const char* pLine, int nLength) override {
        if (nLength > 0) sentences.append(QByteArray(pLine, nLength));
    }
    void ShowSourceMessage(const QString& strText) override { messages.append(strText); }
    void PrepareSourceChange(bool) override {}
    void SourceStarted(int nIndex, const QString&, bool) override { startedIndex = nIndex; }
    void TakeNavigationPosition(const MNPosition&) override {}
    void SupervisionTick() override {}

    QList<QByteArray> sentences;
    QStringList messages;
    int startedIndex = -1;
};

// The UI thread's event loop the hand-over needs; made once for the whole test program.
inline void ensureApplication() {
    static int argc = 1;
    static char name[] = "tarvik_gps_tests";
    static char* argv[] = {name, nullptr};
    if (!QCoreApplication::instance()) new QCoreApplication(argc, argv);
}

// Handles events until `done` holds or `timeoutMs` passed; the result of `done`. Only a bound
// against hanging: nothing is asserted about how long it took.
template <class Predicate> bool processEventsUntil(Predicate done, int timeoutMs = 15000) {
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < timeoutMs) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
    return done();
}
