#pragma once

#include <QList>
#include <QRect>
#include <QString>
#include <cstdint>
#include <optional>

struct xcb_connection_t;

// A top-level window of another program: its title (_NET_WM_NAME, else WM_NAME), its class (the
// class part of WM_CLASS) and its process (_NET_WM_PID, 0 when not told).
struct X11Window {
    uint32_t id = 0;
    QString title;
    QString className;
    uint32_t pid = 0;
};

// Other programs' windows through xcb, as far as X11 shows them. Without an X display (no DISPLAY,
// a Wayland session without Xwayland) nothing is connected and every answer is empty or false.
class X11Windows {
public:
    // `display` as in $DISPLAY; empty for $DISPLAY itself.
    explicit X11Windows(const QString& display = {});
    ~X11Windows();
    X11Windows(const X11Windows&) = delete;
    X11Windows& operator=(const X11Windows&) = delete;

    bool isConnected() const { return m_pConnection != nullptr; }
    // The window manager's _NET_CLIENT_LIST; without a window manager the root's children.
    QList<X11Window> topLevelWindows() const;
    std::optional<X11Window> findByTitle(const QString& title) const;
    // Asks the window manager for _NET_ACTIVE_WINDOW and raises the window itself, for a desktop
    // without one.
    bool activate(uint32_t window) const;
    // Position on the screen and size; nothing for a window that is gone.
    std::optional<QRect> frame(uint32_t window) const;
    // A client message "_TARVIK_COMMAND" with a command number and its parameter, the X11 form of
    // a posted window command.
    bool postCommand(uint32_t window, uint32_t command, uint32_t parameter) const;

private:
    uint32_t atom(const char* name) const;
    QByteArray property(uint32_t window, uint32_t property, uint32_t type) const;

    xcb_connection_t* m_pConnection = nullptr;
    uint32_t m_nRoot = 0;
};
