#include "integrations/livepos/CLiveposLookup.h"

#include <QFile>

CLiveposLookup::CLiveposLookup(QString cacheFolder, QObject* parent)
    : QObject(parent), m_strCacheFolder(std::move(cacheFolder)) {
    m_options.pStop = &m_bStop;
}

CLiveposLookup::~CLiveposLookup() {
    m_bStop = true;
    if (m_thread.joinable()) m_thread.join();
}

CLiveposLookup::Result CLiveposLookup::Fetch(const QString& url, const QString& cacheFolder,
                                             const HttpDownload::Options& options) {
    Result result;
    const HttpDownload::Result download = HttpDownload::ToCacheFile(url, cacheFolder, options);
    QByteArray body;
    if (!download.strFile.isEmpty()) {
        QFile file(download.strFile);
        if (file.open(QIODevice::ReadOnly)) body = file.readAll();
        file.close();
        QFile::remove(download.strFile);
    }
    if (!download.bOk) {
        result.strShown = QString::fromLatin1(kFetchFailed);
        result.strError = download.strError;
        return result;
    }
    result.bFetched = true;
    QByteArray line;
    if (!LiveposAnswers::FirstLine(body, line)) {
        result.strShown = QString::fromLatin1(LiveposAnswers::kWrongData);
        return result;
    }
    result.answer = LiveposAnswers::ParseLine(line);
    result.strShown = result.answer.strLine;
    return result;
}

bool CLiveposLookup::Start(const QString& url) {
    if (m_bRunning.load()) return false;
    if (m_thread.joinable()) m_thread.join();
    m_bRunning = true;
    m_thread = std::thread([this, url] {
        const Result result = Fetch(url, m_strCacheFolder, m_options);
        QMetaObject::invokeMethod(
            this,
            [this, result] {
                m_bRunning = false;
                Q_EMIT finished(result);
            },
            Qt::QueuedConnection);
    });
    return true;
}
