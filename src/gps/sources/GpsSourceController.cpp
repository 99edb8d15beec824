#include "gps/sources/GpsSourceController.h"

#include "gps/sources/GpsSourceTarget.h"
#include "gps/sources/NetworkReadThread.h"
#include "gps/sources/PortReadThread.h"
#include "gps/sources/SourceSettings.h"
#include "gps/sources/SourceTable.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"

#include <QFileInfo>

GpsSourceController::GpsSourceController(GpsSourceTarget& target, const DeviceRoot& root)
    : m_target(target), m_root(root) {
    m_navigationProgramRuns = [this] {
        return QFileInfo::exists(m_root.hostPath(QString::fromLatin1(MNPositionFile::kPath)));
    };
    m_tickTimer.setInterval(kTickMs);
    QObject::connect(&m_tickTimer, &QTimer::timeout, this, [this] { tick(); });
}

GpsSourceController::~GpsSourceController() {
    stopSource();
}

bool GpsSourceController::navigationSourceInUse() const {
    return m_nSourceIndex == SourceTable::kMobileNavigator;
}

void GpsSourceController::updateSettings(bool bResetStatistics) {
    m_tickTimer.stop();
    devLog("UpdateSettings()");
    m_target.PrepareSourceChange(bResetStatistics);
    stopSource();
    if (bResetStatistics) m_bFailureShown = false;

    CRegistryKey key;
    const QString source =
        m_strSourceOverride.isEmpty() ? readSetting(key, SourceSettings::kSource) : m_strSourceOverride;
    int index = SourceTable::lookUp(source);
    if (index == SourceTable::kMobileNavigator) m_bMnPriority = readSetting(key, SourceSettings::kMnPriority);
    if (m_bMnPriority && m_navigationProgramRuns()) index = SourceTable::kMobileNavigator;
    m_nSourceIndex = index;

    QString file;
    if (std::unique_ptr<SentenceReader> reader = createReader(index, file)) {
        m_target.HandleSentence(nullptr, 0);
        m_pReader = std::make_unique<ReaderThread>(std::move(reader), static_cast<SentenceSink&>(*this));
        m_pReader->start();
    }
    m_target.SourceStarted(index, file, bResetStatistics);
    if (index != SourceTable::kFile) m_tickTimer.start();
}

std::unique_ptr<SentenceReader> GpsSourceController::createReader(int index, QString& file) {
    CRegistryKey key;
    const bool acceptAllTalkers = readSetting(key, SourceSettings::kAcceptAllTalkers);
    switch (index) {
    case SourceTable::kFile:
        file = m_root.hostPath(readSetting(key, SourceSettings::kFile));
        return nullptr;
    case SourceTable::kSimulate: {
        const int speed = readSetting(key, SourceSettings::kSimulationSpeed);
        const QString name = readSetting(key, SourceSettings::kFile);
        auto replay = std::make_unique<QFile>(m_root.hostPath(name));
        if (name.isEmpty() || !replay->open(QIODevice::ReadOnly)) {
            m_target.ShowSourceMessage("Unable to open the file: " + name);
            return nullptr;
        }
        return std::make_unique<FileReadThread>(std::move(replay), speed, acceptAllTalkers, m_replayPause);
    }
    case SourceTable::kMobileNavigator:
        return nullptr;
    case SourceTable::kGpsd:
        return std::make_unique<NetworkReadThread>(
            "GpsdReadThread",
            NetworkReadThread::gpsd(readSetting(key, SourceSettings::kGpsdHost), acceptAllTalkers));
    case SourceTable::kTcp:
        return std::make_unique<NetworkReadThread>(
            "TcpReadThread",
            NetworkReadThread::nmeaTcp(readSetting(key, SourceSettings::kNmeaTcpHost), acceptAllTalkers));
    default: {
        const QString device = m_strDeviceOverride.isEmpty()
                                   ? readSetting(key, SourceSettings::kPortDevices[index])
                                   : m_strDeviceOverride;
        const int baudRate = ValueText::wtol(readSetting(key, SourceSettings::kSpeed));
        return std::make_unique<PortReadThread>(device, baudRate, acceptAllTalkers);
    }
    }
}

void GpsSourceController::stopSource() {
    m_tickTimer.stop();
    if (!m_pReader) return;
    m_pReader->stopAndWait(m_stopRounds);
    m_pReader.reset();
}

bool GpsSourceController::writeToPort(const QByteArray& bytes) {
    QString message;
    if (m_share.takeCommand(bytes, message)) {
        if (!message.isEmpty()) m_target.ShowSourceMessage(message);
        return true;
    }
    return m_pReader && m_pReader->writeToDevice(bytes);
}

QString GpsSourceController::updateSharing() {
    m_share.stop();
    bool enabled = false;
    const ReceiverShare::Options options = ReceiverShare::readOptions(m_root, enabled);
    return enabled ? m_share.start(options) : QString();
}

void GpsSourceController::handOver(const char* line, int length) {
    // First to the other programs: they never wait for the pages.
    m_share.takeLine(line, length);
    QMetaObject::invokeMethod(
        this,
        [this, line, length] {
            m_bFailureShown = false;
            m_target.HandleSentence(line, length);
        },
        Qt::BlockingQueuedConnection);
}

void GpsSourceController::reportFailure(const QString& text) {
    QMetaObject::invokeMethod(
        this, [this, text] { showFailure(text); }, Qt::QueuedConnection);
}

void GpsSourceController::showFailure(const QString& text) {
    devLog("!!!!%s", text.toUtf8().constData());
    // A pulled receiver fails again at every reconnect; the user hears of it once.
    if (m_bFailureShown) return;
    m_bFailureShown = true;
    m_target.ShowSourceMessage(text);
}

bool GpsSourceController::primeNavigationPosition(MNPosition& position) {
    if (!MNPositionFile::read(m_root, position)) return false;
    m_lastNavigationPosition = position;
    return true;
}

void GpsSourceController::readNavigationPosition() {
    MNPosition position;
    if (!MNPositionFile::read(m_root, position) || position.sameMotion(m_lastNavigationPosition)) return;
    m_lastNavigationPosition = position;
    m_target.TakeNavigationPosition(position);
}

void GpsSourceController::tick() {
    const bool programRuns = m_navigationProgramRuns();
    if (!m_bMnPriority) {
        if (programRuns) readNavigationPosition();
    } else if (m_nSourceIndex != SourceTable::kMobileNavigator) {
        if (programRuns) {
            updateSettings(false);
            if (m_navigationProgramRuns()) readNavigationPosition();
        }
    } else if (programRuns) {
        readNavigationPosition();
    } else {
        updateSettings(false);
        if (m_navigationProgramRuns()) readNavigationPosition();
    }
    m_target.SupervisionTick();
}
