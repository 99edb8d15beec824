#include "XvfbServer.h"
#include "integrations/NavigationTarget.h"
#include "integrations/navbridge/NavProgramKind.h"
#include "integrations/navbridge/NavigationBridge.h"
#include "integrations/navbridge/X11Windows.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <xcb/xcb.h>

namespace {

// The bridge against windows that the test makes on an Xvfb of its own.
class X11WindowsTest : public ::testing::Test, protected XvfbServer {
protected:
    void SetUp() override {
        if (!Start()) GTEST_SKIP() << "no Xvfb display could be started";
    }

    QTemporaryDir m_dir;
    DeviceRoot m_root{m_dir.path()};
    NavigationTarget m_target;
};

} // namespace

// The window search by title and class: the first match wins, "GPS Navigator" is skipped, the title
// counts only up to 32 characters, and with a window manager's client list only its windows count.
TEST_F(X11WindowsTest, FindsTheNavigationProgramsWindow) {
    namespace K = NavProgramKind;
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
        {"Pwc80 after GPS tool", {{"GPS Navigator", "X"}, {"MobNav", "Pwc80Frame"}}, false, 1, K::kMNPwc80},
        {"TomTom SDK", {{"Kate", "Kate"}, {"TomTom Navigator 6", "MunichWinClass"}}, false, 1, K::kTomTomSdk},
        {"Navit by its title in WM_NAME", {{"Navit", "navit"}}, false, 0, K::kNavit},
        {"others", {{"Editor", "Kate"}, {"Terminal with a rather long title Navigator", "X"}}, false, -1, 0},
        {"client list", {{"Falk Navigator", "X", false}, {"Marco Polo", "Y"}}, true, 1, K::kFalkMarcoPolo},
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
        if (found && c.expectedWindow >= 0) {
            EXPECT_EQ(*found, ids[c.expectedWindow]);
        }
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
