#include "integrations/navbridge/NavitClient.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace {
const char* const kService = "org.navit_project.navit";
const char* const kPath = "/org/navit_project/navit/default_navit";
const char* const kInterface = "org.navit_project.navit.navit";
} // namespace

QString NavitClient::GeoText(double lon, double lat) {
    return QStringLiteral("geo: %1 %2").arg(lon, 0, 'f', 6).arg(lat, 0, 'f', 6);
}

bool NavitClient::SetDestination(double lon, double lat, const QString& name) const {
    return Call("set_destination", {GeoText(lon, lat), name});
}

bool NavitClient::Zoom(int factor) const {
    return Call("zoom", {factor});
}

bool NavitClient::Call(const char* method, const QVariantList& arguments) const {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        m_strError = QStringLiteral("no session D-Bus");
        return false;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kService), QLatin1String(kPath),
                                                       QLatin1String(kInterface), QLatin1String(method));
    call.setArguments(arguments);
    const QDBusMessage reply = bus.call(call, QDBus::Block, m_nTimeoutMs);
    if (reply.type() == QDBusMessage::ReplyMessage) {
        m_strError.clear();
        return true;
    }
    m_strError = reply.errorMessage().isEmpty() ? reply.errorName() : reply.errorMessage();
    return false;
}
