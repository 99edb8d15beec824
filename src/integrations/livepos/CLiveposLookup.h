#pragma once

#include "integrations/livepos/HttpDownload.h"
#include "integrations/livepos/LiveposAnswer.h"

#include <QObject>
#include <atomic>
#include <thread>

// The look-up of another user's last position (GetPos): one GET, the answer's first line read as
// longitude, latitude and text. The page starts it on a short thread of its own and gets `finished`
// on the UI thread; the tool calls Fetch directly.
class CLiveposLookup : public QObject {
    Q_OBJECT
public:
    static constexpr const char* kFetchFailed = "Fehler!";

    struct Result {
        bool bFetched = false;
        QString strShown; // what the result field shows: the line, "Fehler!" or "Wrong Data!"
        LiveposAnswer answer;
        QString strError; // why the download failed
    };

    explicit CLiveposLookup(QString cacheFolder, QObject* parent = nullptr);
    ~CLiveposLookup() override;

    static Result Fetch(const QString& url, const QString& cacheFolder, const HttpDownload::Options& options);

    // False while a look-up runs.
    bool Start(const QString& url);
    bool IsRunning() const { return m_bRunning.load(); }
    void SetTimeout(int nMilliseconds) { m_options.nTimeoutMs = nMilliseconds; }

Q_SIGNALS:
    void finished(const CLiveposLookup::Result& result);

private:
    QString m_strCacheFolder;
    HttpDownload::Options m_options;
    std::atomic<bool> m_bStop{false};
    std::atomic<bool> m_bRunning{false};
    std::thread m_thread;
};
