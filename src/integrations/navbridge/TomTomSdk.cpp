#include "integrations/navbridge/TomTomSdk.h"

#include "platform/DeviceRoot.h"
#include "settings/DevLog.h"

#include <QDir>
#include <QFile>

namespace TomTomSdk {

QByteArray navigateMessage(double lon, double lat, const QString& name) {
    return "NavigateToCoordinatesV01|" + QByteArray::number(int32_t(lon * 100000)) + '|' +
           QByteArray::number(int32_t(lat * 100000)) + '|' + name.toLatin1() + "|.";
}

namespace {
bool append(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::Append) && file.write(bytes) == bytes.size() && file.flush();
}
} // namespace

QStringList sendFileCall(const DeviceRoot& root, const QByteArray& message) {
    if (!QDir().mkpath(root.hostPath(QString::fromLatin1(kFolder)))) return {};
    const QString messagePath = root.hostPath(QString::fromLatin1(kMessageFile));
    const QString finishedPath = root.hostPath(QString::fromLatin1(kFinishedFile));
    if (!append(messagePath, message + '\0')) return {};
    if (!append(finishedPath, QByteArray("finish\n", 8))) return {}; // 8 bytes with the zero
    return {messagePath, finishedPath};
}

} // namespace TomTomSdk

SdkFileCleanup::SdkFileCleanup(const DeviceRoot& root, std::chrono::milliseconds round, int rounds)
    : m_strFolder(root.hostPath(QString::fromLatin1(TomTomSdk::kFolder))), m_round(round), m_nRounds(rounds) {
}

SdkFileCleanup::~SdkFileCleanup() {
    stop();
}

void SdkFileCleanup::start() {
    if (m_bRunning) return;
    if (m_thread.joinable()) m_thread.join();
    m_stop.reset();
    m_bRunning = true;
    m_thread = std::thread([this] { run(); });
}

void SdkFileCleanup::stop() {
    m_stop.set();
    join();
}

bool SdkFileCleanup::isRunning() const {
    return m_bRunning;
}

void SdkFileCleanup::join() {
    if (m_thread.joinable()) m_thread.join();
}

void SdkFileCleanup::run() {
    devLog("->Start DelSDKFiles");
    int replies = 0;
    for (int round = 0; round < m_nRounds && replies < 2; ++round) {
        if (m_stop.waitFor(int(m_round.count()))) {
            m_nReplies = replies;
            m_bRunning = false;
            return;
        }
        replies += deleteFiles(QStringLiteral("TomTomNavigationServer.Tarvik.*.*"));
    }
    deleteFiles(QStringLiteral("Tarvik.TomTomNavigationServer.*.*"));
    devLog("->End DelSDKFiles");
    m_nReplies = replies;
    m_bRunning = false;
}

int SdkFileCleanup::deleteFiles(const QString& pattern) const {
    QDir folder(m_strFolder);
    int deleted = 0;
    for (const QString& name : folder.entryList({pattern}, QDir::Files))
        if (folder.remove(name)) ++deleted;
    return deleted;
}
