#include "platform/session/DestinationBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace {
constexpr int kCallTimeoutMs = 5000;
}

DestinationService::DestinationService(Take take, Describe describe, QObject* parent)
    : QObject(parent), m_take(std::move(take)), m_describe(std::move(describe)) {}

bool DestinationService::Register() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return false;
    if (!bus.registerObject(QString::fromLatin1(kPath), this, QDBusConnection::ExportScriptableSlots))
        return false;
    if (bus.registerService(QString::fromLatin1(kService))) return true;
    bus.unregisterObject(QString::fromLatin1(kPath));
    return false;
}

bool DestinationService::SendToRunning(double lon, double lat, const QString& name) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(QString::fromLatin1(kService)))
        return false;
    QDBusMessage call =
        QDBusMessage::createMethodCall(QString::fromLatin1(kService), QString::fromLatin1(kPath),
                                       QString::fromLatin1(kInterface), QStringLiteral("SetTarget"));
    call << lon << lat << name;
    return bus.call(call, QDBus::Block, kCallTimeoutMs).type() == QDBusMessage::ReplyMessage;
}

void DestinationService::SetTarget(double lon, double lat, const QString& name) {
    m_take(lon, lat, name);
}

QString DestinationService::Target() const {
    return m_describe();
}
