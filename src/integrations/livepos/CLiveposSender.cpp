#include "integrations/livepos/CLiveposSender.h"

#include "integrations/livepos/LiveposQueue.h"
#include "integrations/livepos/LiveposSettings.h"
#include "platform/TickCount.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"

#include <QFile>

namespace {

// Queued positions sent after one success; the rest wait for the next send.
constexpr int kQueueBatch = 50;

} // namespace

CLiveposSender::CLiveposSender(QString cacheFolder, QString queuePath, Hooks hooks, QObject* parent)
    : QObject(parent), m_strCacheFolder(std::move(cacheFolder)), m_strQueuePath(std::move(queuePath)),
      m_hooks(std::move(hooks)) {
    if (!m_hooks.tick) m_hooks.tick = tickCount;
    m_options.pStop = &m_bStop;
}

CLiveposSender::~CLiveposSender() {
    Stop();
}

void CLiveposSender::LoadSettings() {
    CRegistryKey key;
    m_nInterval = std::max(0, int(readSetting(key, LiveposSettings::kSendEvery)));
    m_bQueue = readSetting(key, LiveposSettings::kQueue);
}

void CLiveposSender::PostponeByInterval() {
    m_nNextDue = m_hooks.tick() + uint32_t(m_nInterval) * 1000u;
}

void CLiveposSender::SendTick() {
    if (m_bRunning.load() || m_bStop.load()) return;
    if (m_nInterval == 0) return;
    if (m_nNextDue != 0 && m_hooks.tick() < m_nNextDue) return;
    QString error;
    const LiveposFix fix = m_hooks.fix ? m_hooks.fix() : LiveposFix{};
    if (!LiveposUrl::BuildSendUrl(LiveposAccount::FromSettings(), fix, m_hooks.expand, m_strUrl, error)) {
        m_strStatus = error;
        Q_EMIT statusChanged();
        return;
    }
    Join();
    m_bRunning = true;
    m_thread = std::thread([this, url = m_strUrl] {
        const Outcome outcome = SetPosThread(url);
        // Running until the outcome is applied: no second send starts on a stale next-due tick.
        QMetaObject::invokeMethod(
            this,
            [this, outcome] {
                Finish(outcome);
                m_bRunning = false;
            },
            Qt::QueuedConnection);
    });
}

CLiveposSender::Outcome CLiveposSender::SendNow(const QString& url) {
    const Outcome outcome = SetPosThread(url);
    Finish(outcome);
    return outcome;
}

bool CLiveposSender::SendOne(const QString& url, Outcome& outcome) {
    const HttpDownload::Result result = HttpDownload::ToCacheFile(url, m_strCacheFolder, m_options);
    const bool bRemoved = result.strFile.isEmpty() || QFile::remove(result.strFile);
    outcome.nHttpStatus = result.nHttpStatus;
    outcome.strError = result.strError;
    if (result.bOk && !bRemoved) outcome.strError = QStringLiteral("cannot remove ") + result.strFile;
    return result.bOk && bRemoved;
}

CLiveposSender::Outcome CLiveposSender::SetPosThread(const QString& url) {
    devLog("->Start SetPosThread");
    Outcome outcome;
    LiveposQueue queue(m_strQueuePath);
    outcome.bOk = SendOne(url, outcome);
    if (!outcome.bOk) {
        devLog("!!!! SetPosThread: %s", qUtf8Printable(outcome.strError));
        if (m_bQueue && !m_bStop.load()) queue.Push(url);
    } else if (m_bQueue) {
        QString queued;
        Outcome drained;
        // Dropped only after its send succeeded; nothing that went out is sent again.
        while (outcome.nQueueSent < kQueueBatch && !m_bStop.load() && queue.Latest(queued) &&
               SendOne(queued, drained) && queue.PopLatest())
            ++outcome.nQueueSent;
    }
    devLog("->End SetPosThread");
    return outcome;
}

void CLiveposSender::Finish(const Outcome& outcome) {
    m_nLastHttpStatus = outcome.nHttpStatus;
    if (outcome.bOk) {
        const int64_t tLocal = m_hooks.localNow ? m_hooks.localNow() : 0;
        const int nMinuteOfDay = int(((tLocal % 86400) + 86400) % 86400 / 60);
        m_strStatus = QString::asprintf("Last Log: %02d:%02d", nMinuteOfDay / 60, nMinuteOfDay % 60);
        m_nFailures = 0;
        PostponeByInterval();
    } else {
        // The next-due tick stays: the next position update tries again at once.
        m_strStatus = QString::asprintf("Fault # %d", ++m_nFailures);
    }
    Q_EMIT statusChanged();
}

void CLiveposSender::Join() {
    if (m_thread.joinable()) m_thread.join();
}

void CLiveposSender::Stop() {
    m_bStop = true;
    Join();
}
