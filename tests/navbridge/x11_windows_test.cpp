#include "integrations/NavigationTarget.h"
#include "integrations/navbridge/NavProgramKind.h"
#include "integrations/navbridge/NavigationBridge.h"
#include "integrations/navbridge/X11Windows.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <cstring>
#include <gtest/gtest.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

// An Xvfb of the test's own on a free display, and a small xcb client that makes windows on it.
class X11WindowsTest : public ::testing::Test {
protected:
    void SetUp() override {
        const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        if (xvfb.isEmpty()) GTEST_SKIP() << "Xvfb is not installed";
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
        if (!m_pConnection) GTEST_SKIP() << "no Xvfb display could be started";
        m_nRoot = xcb_setup_roots_iterator(xcb_get_setup(m_pConnection)).data->root;
    }
    void TearDown() override {
        if (m_pConnection) xcb_disconnect(m_pConnection);
        m_server.kill();
        m_server.waitForFinished();
    }

    uint32_t atom(const char* name) {
        auto* answer = xcb_intern_atom_reply(m_pConnection,
                                             xcb_intern_atom(m_pConnection, 0, strlen(name), name), nullptr);
        const uint32_t value = answer->atom;
        free(answer);
        return value;
    }
    void setProperty(uint32_t window, uint32_t name, uint32_t type, int format, const void* data,
                     uint32_t count) {
        xcb_change_property(m_pConnection, XCB_PROP_MODE_REPLACE, window, name, type, format, count, data);
    }
    // A mapped top-level window; `title` goes into _NET_WM_NAME when `utf8`, else into WM_NAME.
    uint32_t makeWindow(const QString& title, const QByteArray& className, QRect frame = {0, 0, 100, 80},
                        bool utf8 = true) {
        const uint32_t id = xcb_generate_id(m_pConnection);
        xcb_create_window(m_pConnection, XCB_COPY_FROM_PARENT, id, m_nRoot, frame.x(), frame.y(),
                          frame.width(), frame.height(), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
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
    void destroyWindows() {
        for (const uint32_t id : m_windows)
            xcb_destroy_window(m_pConnection, id);
        xcb_delete_property(m_pConnection, m_nRoot, atom("_NET_CLIENT_LIST"));
        xcb_flush(m_pConnection);
        m_windows.clear();
    }
    QList<uint32_t> stackingOrder() {
        auto* tree = xcb_query_tree_reply(m_pConnection, xcb_query_tree(m_pConnection, m_nRoot), nullptr);
        QList<uint32_t> order;
        for (int i = 0; i < xcb_query_tree_children_length(tree); ++i)
            order.append(xcb_query_tree_children(tree)[i]);
        free(tree);
        return order;
    }

    QProcess m_server;
    QString m_strDisplay;
    xcb_connection_t* m_pConnection = nullptr;
    uint32_t m_nRoot = 0;
    QList<uint32_t> m_windows;
    QTemporaryDir m_dir;
    DeviceRoot m_root{m_dir.path()};
    NavigationTarget m_target;
};

} // namespace

// The window search by title and class: the first match wins, "GPS Navigator" is skipped, the title
// counts only up to 32 characters, and with a window manager's client list only its windows count.
TEST_F(X11WindowsTest, FindsTheNavigationProgramsWindow) {
    struct Window {
        const char* title;
        const char* className;
        bool inClientList = true;
    };
    struct Case {
        const char* legend;
        QList<Window> windows;
        bool withClientList;
        int expectedWindow; // index, -1 none
        int expectedKind;
    } cases[] = {
        {"GPS tool skipped, then MobileNavigator with class Pwc80",
         {{"GPS Navigator", "X"}, {"MobNav", "Pwc80Frame"}},
         false,
         1,
         NavProgramKind::kMNPwc80},
        {"TomTom with its SDK class",
         {{"Editor", "Kate"}, {"TomTom Navigator 6", "MunichWinClass"}},
         false,
         1,
         NavProgramKind::kTomTomSdk},
        {"Navit by its title in WM_NAME", {{"Navit", "navit"}}, false, 0, NavProgramKind::kNavit},
        {"only other programs",
         {{"Editor", "Kate"}, {"Terminal with a rather long title Navigator", "X"}},
         false,
         -1,
         0},
        {"the client list leaves the first navigator out",
         {{"Falk Navigator", "X", false}, {"Marco Polo", "Y"}},
         true,
         1,
         NavProgramKind::kFalkMarcoPolo},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        QList<uint32_t> ids, listed;
        for (const Window& w : c.windows) {
            ids.append(makeWindow(QString::fromUtf8(w.title), w.className, {0, 0, 100, 80},
                                  c.expectedKind != NavProgramKind::kNavit));
            if (w.inClientList) listed.append(ids.last());
        }
        if (c.withClientList)
            setProperty(m_nRoot, atom("_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32, listed.constData(),
                        listed.size());
        xcb_flush(m_pConnection);
        NavigationBridge bridge(m_root, m_target, m_strDisplay);
        const auto found = bridge.FindNavigationWindow();
        EXPECT_EQ(found.has_value(), c.expectedWindow >= 0);
        if (found && c.expectedWindow >= 0) EXPECT_EQ(*found, ids[c.expectedWindow]);
        EXPECT_EQ(bridge.Kind(), c.expectedKind);
        destroyWindows();
    }
}

// Bringing to the front raises the window above the others; its frame is where it was made.
TEST_F(X11WindowsTest, BringsTheWindowToTheFront) {
    const uint32_t navigator = makeWindow(QStringLiteral("MobileNavigator"), "MN", {30, 40, 200, 100});
    const uint32_t other = makeWindow(QStringLiteral("Editor"), "Kate", {0, 0, 400, 300});
    ASSERT_EQ(stackingOrder().last(), other);
    NavigationBridge bridge(m_root, m_target, m_strDisplay);
    QString error;
    EXPECT_TRUE(bridge.BringToFront(error)) << error.toStdString();
    EXPECT_EQ(stackingOrder().last(), navigator);
    EXPECT_EQ(bridge.WindowFrame(), QRect(30, 40, 200, 100));
}

// Without a display there are no windows and nothing to bring forward.
TEST(X11Windows, NoDisplayFindsNothing) {
    const QByteArray saved = qgetenv("DISPLAY");
    qunsetenv("DISPLAY");
    const X11Windows windows;
    EXPECT_FALSE(windows.isConnected());
    EXPECT_TRUE(windows.topLevelWindows().isEmpty());
    EXPECT_FALSE(windows.activate(1));
    if (!saved.isEmpty()) qputenv("DISPLAY", saved);
}
