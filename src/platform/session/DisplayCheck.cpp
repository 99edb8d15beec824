#include "platform/session/DisplayCheck.h"

#include <xcb/xcb.h>

QString missingDisplayReason() {
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return {};
    const QString display = qEnvironmentVariable("DISPLAY");
    if (display.isEmpty())
        return QStringLiteral("no display: neither DISPLAY nor WAYLAND_DISPLAY is set "
                              "(QT_QPA_PLATFORM=offscreen runs without one)");
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool reached = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return reached ? QString() : QStringLiteral("cannot open display %1").arg(display);
}
