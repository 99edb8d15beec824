#include "integrations/livepos/HttpDownload.h"

#include <QDir>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTemporaryFile>
#include <QTimer>
#include <QUrl>

namespace HttpDownload {

namespace {

constexpr int kStopPollMs = 50;

bool isHttp(const QUrl& url) {
    return url.isValid() && (url.scheme() == u"http" || url.scheme() == u"https") && !url.host().isEmpty();
}

} // namespace

Result ToCacheFile(const QString& address, const QString& cacheFolder, const Options& options) {
    Result result;
    const QUrl url(address.trimmed(), QUrl::TolerantMode);
    if (!isHttp(url)) {
        result.strError = QStringLiteral("not an HTTP address: ") + address.left(200);
        return result;
    }
    QDir().mkpath(cacheFolder);
    QTemporaryFile file(QDir(cacheFolder).filePath(QStringLiteral("livepos-XXXXXX.txt")));
    file.setAutoRemove(false);
    if (!file.open()) {
        result.strError = QStringLiteral("cannot write to ") + cacheFolder;
        return result;
    }
    result.strFile = file.fileName();

    QNetworkAccessManager manager;
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    QNetworkReply* reply = manager.get(request);
    QEventLoop loop;
    bool bTimedOut = false;
    bool bStopped = false;
    bool bCapped = false;
    int64_t nStored = 0;
    QObject::connect(reply, &QNetworkReply::readyRead, &loop, [&] {
        const QByteArray chunk = reply->read(options.nMaxBytes - nStored);
        nStored += file.write(chunk);
        if (nStored >= options.nMaxBytes) {
            bCapped = true;
            reply->abort();
        }
    });
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, &loop, [&] {
        bTimedOut = true;
        reply->abort();
    });
    timeout.start(options.nTimeoutMs);
    QTimer stopPoll;
    QObject::connect(&stopPoll, &QTimer::timeout, &loop, [&] {
        if (options.pStop && options.pStop->load()) {
            bStopped = true;
            reply->abort();
        }
    });
    stopPoll.start(kStopPollMs);
    if (!reply->isFinished()) loop.exec();

    if (!bCapped && reply->bytesAvailable() > 0) file.write(reply->read(options.nMaxBytes - nStored));
    file.close();
    result.nHttpStatus = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool bAnswered = result.nHttpStatus >= 200 && result.nHttpStatus < 300;
    if (bTimedOut)
        result.strError = QStringLiteral("no answer within %1 ms").arg(options.nTimeoutMs);
    else if (bStopped)
        result.strError = QStringLiteral("stopped");
    else if (bCapped && bAnswered)
        result.bOk = true; // the body goes on, but what matters has come
    else if (reply->error() != QNetworkReply::NoError)
        result.strError = reply->errorString().simplified();
    else if (!bAnswered)
        result.strError = QStringLiteral("HTTP status %1").arg(result.nHttpStatus);
    else
        result.bOk = true;
    delete reply;
    return result;
}

} // namespace HttpDownload
