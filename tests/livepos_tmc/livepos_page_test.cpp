#include "LoopbackHttpServer.h"
#include "integrations/livepos/CLiveposSender.h"
#include "integrations/livepos/LiveposQueue.h"
#include "integrations/livepos/LiveposSettings.h"
#include "integrations/ui/CModuleLivepos.h"
#include "settings/CRegistryKey.h"
#include "support/TestApplication.h"
#include "support/TestRoot.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QScrollArea>
#include <gtest/gtest.h>

namespace {

// The page on a fresh root, its look-up answered by a loopback server.
struct PageRig {
    TestRoot root;
    LoopbackHttpServer server;
    CLiveposSender sender{root.root().cacheFolder(), LiveposQueue::DefaultPath(root.root()), {}};
    QStringList handed; // "lon lat name"
    std::unique_ptr<CModuleLivepos> page;

    explicit PageRig(bool bBridge) {
        ensureApplication();
        CRegistryKey key;
        writeSetting(key, LiveposSettings::kUrlGetPos, server.Base() + "/getpos.php?Name=%NickName%");
        CModuleLivepos::Actions actions;
        if (bBridge)
            actions.handToNavigation = [this](double lon, double lat, const QString& name) {
                handed << QStringLiteral("%1 %2 %3").arg(lon).arg(lat).arg(name);
            };
        page = std::make_unique<CModuleLivepos>(sender, actions);
    }
    QPushButton* button(const QString& text) {
        for (QPushButton* b : page->findChildren<QPushButton*>())
            if (b->text() == text) return b;
        return nullptr;
    }
    // Clicks "Position holen" and waits until the answer is shown.
    bool Lookup() {
        QPushButton* get = button("Position holen");
        get->click();
        QElapsedTimer clock;
        clock.start();
        while (!get->isEnabled() && clock.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        return get->isEnabled();
    }
};

} // namespace

TEST(LiveposPage, HandsTheLookedUpPositionToTheNavigationProgram) {
    struct Case {
        const char* legend;
        bool bBridge;
        QByteArray answer;
        bool bOffered;
    };
    const Case cases[] = {
        {"a complete answer", true, "8.5,48.1,Hans 12:00\n", true},
        {"no text: not offered", true, "8.5,48.1\n", false},
        {"no bridge: not offered", false, "8.5,48.1,Hans 12:00\n", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        PageRig rig(c.bBridge);
        rig.server.SetAnswer(200, c.answer);
        ASSERT_TRUE(rig.Lookup());
        QPushButton* toNavigation = rig.button("An Navigationsprogramm");
        EXPECT_EQ(toNavigation->isEnabled(), c.bOffered);
        toNavigation->click();
        EXPECT_EQ(rig.handed, c.bOffered ? QStringList{"8.5 48.1 Hans 12:00"} : QStringList());
    }
}

TEST(LiveposPage, FitsAcrossASmallScreen) {
    for (const QSize size : {QSize(240, 320), QSize(800, 480)}) {
        SCOPED_TRACE(size.width());
        PageRig rig(true);
        rig.page->resize(size);
        rig.page->show();
        QCoreApplication::processEvents();
        const auto* area = rig.page->findChild<QScrollArea*>();
        ASSERT_NE(area, nullptr);
        EXPECT_LE(area->widget()->width(), area->viewport()->width());
    }
}
