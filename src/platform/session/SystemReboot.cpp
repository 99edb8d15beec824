#include "platform/session/SystemReboot.h"

#include <QDBusMessage>

bool requestReboot(QDBusConnection bus) {
    if (!bus.isConnected()) return false;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Reboot"));
    call << false; // not interactive: no password prompt from a car PC without a keyboard
    return bus.call(call, QDBus::Block, 5000).type() == QDBusMessage::ReplyMessage;
}
