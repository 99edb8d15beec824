#include "integrations/navbridge/NavitClient.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <cmath>

namespace {
const char* const kService = "org.navit_project.navit";
const char* const kPath = "/org/navit_project/navit/default_navit";
const char* const kInterface = "org.navit_project.navit.navit";
// Navit's Mercator projection ("mg"): metres on a sphere of this radius.
constexpr int kProjectionMg = 1;
constexpr double kMgRadius = 6371000.0;
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

std::optional<GeoPosition> NavitClient::MapCentre() const {
    QDBusMessage reply;
    if (!Call("get_attr", {QStringLiteral("center")}, &reply) || reply.arguments().size() < 2)
        return std::nullopt;
    // ("center", variant of (projection, x, y))
    const QVariant value = reply.arguments().at(1).value<QDBusVariant>().variant();
    if (!value.canConvert<QDBusArgument>()) return std::nullopt;
    const QDBusArgument argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("(iii)")) return std::nullopt;
    int projection = 0, x = 0, y = 0;
    argument.beginStructure();
    argument >> projection >> x >> y;
    argument.endStructure();
    if (projection != kProjectionMg) return std::nullopt;
    return GeoPosition{std::atan(std::exp(y / kMgRadius)) * 360.0 / M_PI - 90.0,
                       x / kMgRadius * 180.0 / M_PI};
}

bool NavitClient::Call(const char* method, const QVariantList& arguments, QDBusMessage* pReply) const {
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
        if (pReply) *pReply = reply;
        return true;
    }
    m_strError = reply.errorMessage().isEmpty() ? reply.errorName() : reply.errorMessage();
    return false;
}
