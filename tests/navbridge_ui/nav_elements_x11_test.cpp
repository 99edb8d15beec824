#include "XvfbServer.h"
#include "integrations/NavigationTarget.h"
#include "integrations/navbridge/NavInfoFile.h"
#include "integrations/navbridge/NavigationBridge.h"
#include "integrations/ui/CInfoElement.h"
#include "integrations/ui/CNavElements.h"
#include "integrations/ui/CNavOverlay.h"
#include "support/Files.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

// Two elements for Navit and one for the other programs; "Gone" has no section.
const char kInfoFile[] = "[Buttons]\nOther\n[Navit]\nSpeed\nGone\nZoom\n"
                         "[Other]\nType=0\nPos=RECT(0,0,50,20)\nText=other\n"
                         "[Speed]\nType=0\nPos=RECT(10,20,110,50)\nText=%Speed% km/h\n"
                         "[Zoom]\nType=1\nPos=RECT(-100,-40,0,0)\nText=+\nAction=<MN Zoom in>\n";

} // namespace

// The element windows of "MNInfo.ini" lie over a real window of another program at their offsets,
// above it, and follow it when it moves; they hide when it is gone. Qt draws on the test's own Xvfb.
TEST(CNavElements, FollowTheNavigationWindowOnX11) {
    XvfbServer x11;
    if (!x11.Start()) GTEST_SKIP() << "no Xvfb display could be started";
    if (qApp) GTEST_SKIP() << "needs a process of its own";
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DISPLAY", x11.Display().toLatin1());
    ensureApplication();

    TestRoot root;
    writeFile(root.file("Tarvik/MNInfo.ini"), kInfoFile);
    NavigationTarget target;
    NavigationBridge bridge(root.root(), target, x11.Display());
    const uint32_t navigator = x11.makeWindow(QStringLiteral("Navit"), "navit", {100, 50, 400, 300});
    QStringList actions;
    CNavOverlay::Services services;
    services.navWindowFrame = [&] {
        bridge.FindNavigationWindow();
        return bridge.WindowFrame();
    };
    services.expand = [](const QString& text) { return QString(text).replace("%Speed%", "42"); };
    services.infoFile = [&] {
        return std::make_pair(NavInfoFile::find(root.root(), bridge.ProgramPath(true)),
                              NavInfoFile::listSection(bridge.Kind()));
    };
    services.onAction = [&](const QString& action) { actions << action; };
    CNavOverlay overlay(services);
    overlay.Refresh(); // the kind is known after the first search: then Navit's list counts

    const auto& windows = overlay.Elements().Windows();
    ASSERT_EQ(windows.size(), 2u);
    CInfoElement& speed = *windows[0];
    CInfoElement& zoom = *windows[1];
    EXPECT_EQ(speed.Text(), "42 km/h");
    struct Step {
        const char* legend;
        QPoint navigatorAt;
        QRect speed, zoom; // on the screen
    } steps[] = {
        {"placed over the window", {100, 50}, {110, 70, 100, 30}, {400, 310, 100, 40}},
        {"moved with it", {250, 120}, {260, 140, 100, 30}, {550, 380, 100, 40}},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.legend);
        x11.moveWindow(navigator, step.navigatorAt);
        overlay.Refresh();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return x11.screenGeometry(uint32_t(speed.winId())) == step.speed &&
                   x11.screenGeometry(uint32_t(zoom.winId())) == step.zoom;
        }));
        const QList<uint32_t> order = x11.stackingOrder();
        EXPECT_GT(order.indexOf(uint32_t(zoom.winId())), order.indexOf(navigator));
        EXPECT_GT(order.indexOf(uint32_t(speed.winId())), order.indexOf(navigator));
    }

    QTest::mouseClick(&zoom, Qt::LeftButton);
    EXPECT_EQ(actions, QStringList{"<MN Zoom in>"});

    x11.destroyWindows();
    overlay.Refresh();
    EXPECT_FALSE(speed.isVisible());
    EXPECT_FALSE(zoom.isVisible());
}
