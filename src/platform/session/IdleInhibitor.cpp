#include "platform/session/IdleInhibitor.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>

namespace {

QDBusInterface screenSaver() {
    return QDBusInterface(QStringLiteral("org.freedesktop.ScreenSaver"),
                          QStringLiteral("/org/freedesktop/ScreenSaver"),
                          QStringLiteral("org.freedesktop.ScreenSaver"), QDBusConnection::sessionBus());
}

} // namespace

void IdleInhibitor::acquire() {
    if (isHeld() || !QDBusConnection::sessionBus().isConnected()) return;
    QDBusInterface service = screenSaver();
    const QDBusReply<uint32_t> reply = service.call(QStringLiteral("Inhibit"), QStringLiteral("Tarvik"),
                                                    QStringLiteral("GPS-Anzeige aktiv"));
    if (reply.isValid()) m_nCookie = reply.value();
}

void IdleInhibitor::release() {
    if (!isHeld()) return;
    QDBusInterface service = screenSaver();
    service.call(QStringLiteral("UnInhibit"), m_nCookie);
    m_nCookie = 0;
}
