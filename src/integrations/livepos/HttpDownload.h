#pragma once

#include <QString>
#include <atomic>
#include <cstdint>

// One HTTP GET into a file of the cache folder, the way the handheld downloaded into its browser
// cache. Runs in the calling thread (with an event loop of its own), so a worker thread calls it
// directly. The address is read tolerantly: blanks and non-ASCII letters are sent percent-encoded
// (UTF-8). The call always returns: after the time-out, after the stop flag was set, or after
// `nMaxBytes` of body (the rest is not read; the answer then counts as received).
namespace HttpDownload {

struct Options {
    int nTimeoutMs = 15000;
    int64_t nMaxBytes = 1 << 20;
    const std::atomic<bool>* pStop = nullptr;
};

struct Result {
    bool bOk = false;    // a 2xx answer whose body was stored
    int nHttpStatus = 0; // 0 when no answer came
    QString strError;    // one line; empty on success
    QString strFile;     // the cache file (host path), even after a failure when it exists
};

Result ToCacheFile(const QString& url, const QString& cacheFolder, const Options& options);

} // namespace HttpDownload
