#pragma once

#include <QList>
#include <QProcess>
#include <QRect>
#include <QString>
#include <cstdint>

struct xcb_connection_t;

// An Xvfb of the test's own on a free display, and a small xcb client that makes windows on it, as
// another program (the navigation program) would.
class XvfbServer {
public:
    XvfbServer() = default;
    ~XvfbServer() { Stop(); }
    XvfbServer(const XvfbServer&) = delete;
    XvfbServer& operator=(const XvfbServer&) = delete;

    // False when Xvfb is not installed or no display could be started (the test skips then).
    bool Start();
    void Stop();
    const QString& Display() const { return m_strDisplay; }

    uint32_t atom(const char* name);
    void setProperty(uint32_t window, uint32_t name, uint32_t type, int format, const void* data,
                     uint32_t count);
    // A mapped top-level window; `title` goes into _NET_WM_NAME when `utf8`, else into WM_NAME.
    uint32_t makeWindow(const QString& title, const QByteArray& className, QRect frame = {0, 0, 100, 80},
                        bool utf8 = true);
    void moveWindow(uint32_t window, const QPoint& to);
    void destroyWindows();
    // The root's children, bottom first.
    QList<uint32_t> stackingOrder();
    // Where a window lies on the screen.
    QRect screenGeometry(uint32_t window);

protected:
    QProcess m_server;
    QString m_strDisplay;
    xcb_connection_t* m_pConnection = nullptr;
    uint32_t m_nRoot = 0;
    QList<uint32_t> m_windows;
};
