#pragma once

#include "integrations/livepos/HttpDownload.h"
#include "integrations/livepos/LiveposUrl.h"

#include <QObject>
#include <QString>
#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

// Sends the position to the live position service at the chosen interval: SendTick on every
// position update starts one short send thread (SetPosThread) when one is due and none runs. The
// thread's outcome comes back to the UI thread, which alone keeps the module state (failure count,
// next-due tick, status text). Failed sends go to the offline queue when it is on; after each
// success the queue is sent, newest first. Stop ends a running send at once.
class CLiveposSender : public QObject {
    Q_OBJECT
public:
    struct Hooks {
        std::function<LiveposFix()> fix;
        TemplateExpander expand;           // the template language; empty: the text stays
        std::function<uint32_t()> tick;    // milliseconds; default: the monotonic clock
        std::function<int64_t()> localNow; // local seconds since 1970, for "Last Log"
    };
    struct Outcome {
        bool bOk = false;
        int nHttpStatus = 0;
        QString strError;
        int nQueueSent = 0; // queued positions that went out after this one
    };

    CLiveposSender(QString cacheFolder, QString queuePath, Hooks hooks, QObject* parent = nullptr);
    ~CLiveposSender() override;

    // Interval (seconds, 0 = off) and queue switch from the settings.
    void LoadSettings();
    void SetInterval(int nSeconds) { m_nInterval = nSeconds; }
    int Interval() const { return m_nInterval; }
    void SetNextDue(uint32_t nTick) { m_nNextDue = nTick; }
    uint32_t NextDue() const { return m_nNextDue; }
    // "now + interval": what leaving the page does.
    void PostponeByInterval();
    void SetTimeout(int nMilliseconds) { m_options.nTimeoutMs = nMilliseconds; }

    void SendTick();
    bool IsSending() const { return m_bRunning.load(); }
    // One send in the calling thread, as the thread does it; the module state is updated.
    Outcome SendNow(const QString& url);
    // Ends a running send and waits for its thread; no send starts afterwards.
    void Stop();

    int Failures() const { return m_nFailures; }
    const QString& StatusText() const { return m_strStatus; }
    int LastHttpStatus() const { return m_nLastHttpStatus; }

Q_SIGNALS:
    void statusChanged();

private:
    Outcome SetPosThread(const QString& url);
    bool SendOne(const QString& url, Outcome& outcome);
    void Finish(const Outcome& outcome);
    void Join();

    QString m_strCacheFolder;
    QString m_strQueuePath;
    Hooks m_hooks;
    HttpDownload::Options m_options;
    std::atomic<bool> m_bStop{false};
    std::atomic<bool> m_bRunning{false};
    std::thread m_thread;
    bool m_bQueue = true;
    int m_nInterval = 0;
    uint32_t m_nNextDue = 0;
    int m_nFailures = 0;
    int m_nLastHttpStatus = 0;
    QString m_strUrl;
    QString m_strStatus;
};
