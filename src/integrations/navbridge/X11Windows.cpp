#include "integrations/navbridge/X11Windows.h"

#include <QByteArray>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace {

template <typename T> using Reply = std::unique_ptr<T, decltype(&std::free)>;
template <typename T> Reply<T> reply(T* pointer) {
    return Reply<T>(pointer, &std::free);
}

constexpr uint32_t kAnyType = XCB_GET_PROPERTY_TYPE_ANY;
constexpr uint32_t kMaxPropertyWords = 1 << 16;

} // namespace

X11Windows::X11Windows(const QString& display) {
    const QByteArray name = display.toLocal8Bit();
    if (name.isEmpty() && qEnvironmentVariableIsEmpty("DISPLAY")) return;
    int screenNumber = 0;
    xcb_connection_t* connection = xcb_connect(name.isEmpty() ? nullptr : name.constData(), &screenNumber);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        return;
    }
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && screens.rem; ++i)
        xcb_screen_next(&screens);
    if (!screens.rem) {
        xcb_disconnect(connection);
        return;
    }
    m_pConnection = connection;
    m_nRoot = screens.data->root;
}

X11Windows::~X11Windows() {
    if (m_pConnection) xcb_disconnect(m_pConnection);
}

uint32_t X11Windows::atom(const char* name) const {
    auto answer = reply(xcb_intern_atom_reply(
        m_pConnection, xcb_intern_atom(m_pConnection, 0, uint16_t(std::strlen(name)), name), nullptr));
    return answer ? answer->atom : uint32_t(XCB_ATOM_NONE);
}

QByteArray X11Windows::property(uint32_t window, uint32_t name, uint32_t type) const {
    auto answer = reply(xcb_get_property_reply(
        m_pConnection, xcb_get_property(m_pConnection, 0, window, name, type, 0, kMaxPropertyWords),
        nullptr));
    if (!answer || answer->type == XCB_ATOM_NONE) return {};
    return QByteArray(static_cast<const char*>(xcb_get_property_value(answer.get())),
                      xcb_get_property_value_length(answer.get()));
}

QList<X11Window> X11Windows::topLevelWindows() const {
    if (!m_pConnection) return {};
    QList<uint32_t> ids;
    const QByteArray clients = property(m_nRoot, atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW);
    if (!clients.isEmpty()) {
        for (qsizetype at = 0; at + 4 <= clients.size(); at += 4) {
            uint32_t id = 0;
            std::memcpy(&id, clients.constData() + at, 4);
            ids.append(id);
        }
    } else if (auto tree = reply(
                   xcb_query_tree_reply(m_pConnection, xcb_query_tree(m_pConnection, m_nRoot), nullptr))) {
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
            ids.append(children[i]);
    }

    const uint32_t netName = atom("_NET_WM_NAME"), utf8 = atom("UTF8_STRING"), pidAtom = atom("_NET_WM_PID");
    QList<X11Window> windows;
    for (const uint32_t id : ids) {
        X11Window window{id, {}, {}, 0};
        const QByteArray utf8Title = property(id, netName, utf8);
        window.title = !utf8Title.isEmpty() ? QString::fromUtf8(utf8Title)
                                            : QString::fromLatin1(property(id, XCB_ATOM_WM_NAME, kAnyType));
        // WM_CLASS holds the instance name and the class name, each ending in a zero.
        const QList<QByteArray> classParts = property(id, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING).split('\0');
        window.className = QString::fromLatin1(
            classParts.size() > 1 && !classParts[1].isEmpty() ? classParts[1] : classParts.value(0));
        const QByteArray pid = property(id, pidAtom, XCB_ATOM_CARDINAL);
        if (pid.size() >= 4) std::memcpy(&window.pid, pid.constData(), 4);
        windows.append(window);
    }
    return windows;
}

std::optional<X11Window> X11Windows::findByTitle(const QString& title) const {
    for (const X11Window& window : topLevelWindows())
        if (window.title == title) return window;
    return std::nullopt;
}

bool X11Windows::activate(uint32_t window) const {
    if (!m_pConnection || !frame(window)) return false;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("_NET_ACTIVE_WINDOW");
    event.data.data32[0] = 2; // from a pager-like program: the user asked for it
    event.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(m_pConnection, 0, m_nRoot,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_pConnection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_map_window(m_pConnection, window);
    // A round trip, so that the window is up before anyone else looks.
    std::free(xcb_get_input_focus_reply(m_pConnection, xcb_get_input_focus(m_pConnection), nullptr));
    return !xcb_connection_has_error(m_pConnection);
}

std::optional<QRect> X11Windows::frame(uint32_t window) const {
    if (!m_pConnection) return std::nullopt;
    auto geometry =
        reply(xcb_get_geometry_reply(m_pConnection, xcb_get_geometry(m_pConnection, window), nullptr));
    if (!geometry) return std::nullopt;
    auto origin = reply(xcb_translate_coordinates_reply(
        m_pConnection, xcb_translate_coordinates(m_pConnection, window, m_nRoot, 0, 0), nullptr));
    if (!origin) return std::nullopt;
    return QRect(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
}

bool X11Windows::postCommand(uint32_t window, uint32_t command, uint32_t parameter) const {
    if (!m_pConnection) return false;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom("_TARVIK_COMMAND");
    event.data.data32[0] = command;
    event.data.data32[1] = parameter;
    xcb_send_event(m_pConnection, 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
    return xcb_flush(m_pConnection) > 0;
}
