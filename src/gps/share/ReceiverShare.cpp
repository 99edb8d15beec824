#include "gps/share/ReceiverShare.h"

#include "gps/share/ShareSettings.h"
#include "gps/share/VantrelCommand.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"

ReceiverShare::Options ReceiverShare::readOptions(const DeviceRoot& root, bool& enabled) {
    CRegistryKey key(QString::fromLatin1(GoToSettings::kVantrelKey), RegistryRoot::LocalMachine);
    enabled = readSetting(key, ShareSettings::kShare);
    Options options;
    const QString link = readSetting(key, ShareSettings::kPortLink);
    if (!link.isEmpty()) options.m_endpoints.m_strLinkPath = root.hostPath(link);
    switch (readSetting(key, ShareSettings::kTcpMode)) {
    case ShareSettings::kTcpLoopback:
        options.m_endpoints.m_strTcpHost = QStringLiteral("127.0.0.1");
        break;
    case ShareSettings::kTcpAllInterfaces:
        options.m_endpoints.m_strTcpHost = QStringLiteral("0.0.0.0");
        break;
    default:
        break;
    }
    options.m_endpoints.m_nTcpPort = readSetting(key, ShareSettings::kTcpPort);
    options.m_dSpeedKmh = readSetting(key, ShareSettings::kSimulationSpeed);
    return options;
}

QString ReceiverShare::start(const Options& options) {
    {
        const std::lock_guard lock(m_mutex);
        m_drive = SimulatedDrive();
        m_drive.setSpeedKmh(options.m_dSpeedKmh);
    }
    return m_fanout.start(options.m_endpoints);
}

void ReceiverShare::stop() {
    m_fanout.stop();
}

void ReceiverShare::takeLine(const char* line, int length) {
    if (!m_fanout.running()) return;
    QList<QByteArray> lines;
    {
        const std::lock_guard lock(m_mutex);
        m_drive.take(QByteArray(line, length), lines);
    }
    for (const QByteArray& shared : lines)
        m_fanout.publish(shared);
}

bool ReceiverShare::takeCommand(const QByteArray& text, QString& message) {
    const VantrelCommand command = readVantrelCommand(text);
    const std::lock_guard lock(m_mutex);
    switch (command.m_kind) {
    case VantrelCommand::Kind::NotForSplitter:
        return false;
    case VantrelCommand::Kind::SimulateTo:
        m_drive.setTarget(command.m_dLat, command.m_dLon);
        break;
    case VantrelCommand::Kind::SimulateOff:
        m_drive.end();
        break;
    case VantrelCommand::Kind::Invalid:
        message = command.m_strError;
        devLog("!!!!%s", message.toUtf8().constData());
        break;
    }
    return true;
}
