#include "XvfbServer.h"

#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <xcb/xcb.h>

bool XvfbServer::Start() {
    const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
    if (xvfb.isEmpty()) return false;
    for (int display = 40 + getpid() % 400; !m_pConnection && display < 1000; display += 7) {
        if (QFile::exists(QStringLiteral("/tmp/.X%1-lock").arg(display))) continue;
        m_strDisplay = QStringLiteral(":%1").arg(display);
        m_server.start(xvfb, {m_strDisplay, "-nolisten", "tcp", "-screen", "0", "800x600x24"});
        for (int i = 0; i < 100 && m_server.state() != QProcess::NotRunning && !m_pConnection; ++i) {
            QThread::msleep(50);
            xcb_connection_t* connection = xcb_connect(m_strDisplay.toLatin1().constData(), nullptr);
            if (xcb_connection_has_error(connection))
                xcb_disconnect(connection);
            else
                m_pConnection = connection;
        }
    }
    if (!m_pConnection) return false;
    m_nRoot = xcb_setup_roots_iterator(xcb_get_setup(m_pConnection)).data->root;
    return true;
}

void XvfbServer::Stop() {
    if (m_pConnection) xcb_disconnect(m_pConnection);
    m_pConnection = nullptr;
    if (m_server.state() == QProcess::NotRunning) return;
    m_server.kill();
    m_server.waitForFinished();
}

uint32_t XvfbServer::atom(const char* name) {
    auto* answer =
        xcb_intern_atom_reply(m_pConnection, xcb_intern_atom(m_pConnection, 0, strlen(name), name), nullptr);
    const uint32_t value = answer->atom;
    free(answer);
    return value;
}

void XvfbServer::setProperty(uint32_t window, uint32_t name, uint32_t type, int format, const void* data,
                             uint32_t count) {
    xcb_change_property(m_pConnection, XCB_PROP_MODE_REPLACE, window, name, type, format, count, data);
}

uint32_t XvfbServer::makeWindow(const QString& title, const QByteArray& className, QRect frame, bool utf8) {
    const uint32_t id = xcb_generate_id(m_pConnection);
    xcb_create_window(m_pConnection, XCB_COPY_FROM_PARENT, id, m_nRoot, frame.x(), frame.y(), frame.width(),
                      frame.height(), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    const QByteArray name = utf8 ? title.toUtf8() : title.toLatin1();
    setProperty(id, utf8 ? atom("_NET_WM_NAME") : uint32_t(XCB_ATOM_WM_NAME),
                utf8 ? atom("UTF8_STRING") : uint32_t(XCB_ATOM_STRING), 8, name.constData(), name.size());
    const QByteArray wmClass = QByteArray("instance\0", 9) + className + '\0';
    setProperty(id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, wmClass.constData(), wmClass.size());
    xcb_map_window(m_pConnection, id);
    xcb_flush(m_pConnection);
    m_windows.append(id);
    return id;
}

void XvfbServer::moveWindow(uint32_t window, const QPoint& to) {
    const uint32_t values[] = {uint32_t(to.x()), uint32_t(to.y())};
    xcb_configure_window(m_pConnection, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, values);
    xcb_flush(m_pConnection);
}

void XvfbServer::destroyWindows() {
    for (const uint32_t id : m_windows)
        xcb_destroy_window(m_pConnection, id);
    xcb_delete_property(m_pConnection, m_nRoot, atom("_NET_CLIENT_LIST"));
    xcb_flush(m_pConnection);
    m_windows.clear();
}

QList<uint32_t> XvfbServer::stackingOrder() {
    auto* tree = xcb_query_tree_reply(m_pConnection, xcb_query_tree(m_pConnection, m_nRoot), nullptr);
    QList<uint32_t> order;
    for (int i = 0; i < xcb_query_tree_children_length(tree); ++i)
        order.append(xcb_query_tree_children(tree)[i]);
    free(tree);
    return order;
}

QRect XvfbServer::screenGeometry(uint32_t window) {
    auto* geometry = xcb_get_geometry_reply(m_pConnection, xcb_get_geometry(m_pConnection, window), nullptr);
    auto* origin = xcb_translate_coordinates_reply(
        m_pConnection, xcb_translate_coordinates(m_pConnection, window, m_nRoot, 0, 0), nullptr);
    QRect rect;
    if (geometry && origin) rect = QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
    free(geometry);
    free(origin);
    return rect;
}
