#include "LoopbackHttpServer.h"
#include "integrations/livepos/CLiveposSender.h"
#include "integrations/livepos/LiveposQueue.h"
#include "integrations/livepos/LiveposSettings.h"
#include "settings/CRegistryKey.h"
#include "support/CoreApplication.h"
#include "support/ForkedChild.h"
#include "support/TestRoot.h"

#include <QSignalSpy>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

// 2023-11-14 22:13:20 UTC, 100 km/h east at 520 m.
const LiveposFix kFix{1700000000, 100.0f, 90.0f};

// Stands in for the template language with the values of one fixed position.
QString fixedPosition(const QString& text) {
    QString out = text;
    out.replace("%Long:2%", "E 11.570000").replace("%Lat:2%", "N 48.140000");
    out.replace("%Long:3%", "11.57").replace("%Lat:3%", "48.14");
    out.replace("%Altitude%", "520").replace("%HDOP%", "0.9");
    return out;
}

struct Rig {
    TestRoot root;
    LoopbackHttpServer server;
    uint32_t nTick = 1000;
    std::unique_ptr<CLiveposSender> sender;

    explicit Rig(const QString& sendTemplate = {}) {
        ensureCoreApplication();
        CRegistryKey key;
        writeSetting(key, LiveposSettings::kNickName, "Hans");
        writeSetting(key, LiveposSettings::kUrlSendPos,
                     sendTemplate.isEmpty()
                         ? server.Base() + "/Livepos/sendpos.php?Name=%NickName%&Long=%Long:2%"
                         : sendTemplate);
        CLiveposSender::Hooks hooks;
        hooks.fix = [] { return kFix; };
        hooks.expand = fixedPosition;
        hooks.tick = [this] { return nTick; };
        hooks.localNow = [] { return int64_t(1700000000 + 3600); };
        sender = std::make_unique<CLiveposSender>(root.root().cacheFolder(),
                                                  LiveposQueue::DefaultPath(root.root()), hooks);
        sender->SetTimeout(400);
    }
    // One position update; waits for the send it started, if any. True when one was started.
    bool Tick() {
        QSignalSpy done(sender.get(), &CLiveposSender::statusChanged);
        sender->SendTick();
        if (!sender->IsSending() && done.isEmpty() && !done.wait(50)) return false;
        return !done.isEmpty() || done.wait(5000);
    }
};

} // namespace

TEST(LiveposSend, RequestLineOfEachTemplate) {
    struct Case {
        const char* legend;
        QString templ; // "{base}" stands for the server's address
        const char* nickName;
        QString expected;
    };
    const Case cases[] = {
        {"Traccar, OsmAnd protocol", LiveposUrl::TraccarTemplate("{base}/"), "Hans",
         "GET "
         "/?id=Hans&lat=48.14&lon=11.57&timestamp=1700000000&speed=54.0&bearing=90.0&altitude=520&hdop=0.9 "
         "HTTP/1.1"},
        {"blanks and umlauts in the nick name go out as UTF-8", "{base}/s?Name=%NickName%", "Jörg Ü",
         "GET /s?Name=J%C3%B6rg%20%C3%9C HTTP/1.1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        Rig rig;
        QString templ = c.templ;
        templ.replace("{base}", rig.server.Base());
        CRegistryKey key;
        writeSetting(key, LiveposSettings::kUrlSendPos, templ);
        writeSetting(key, LiveposSettings::kNickName, QString::fromUtf8(c.nickName));
        rig.sender->SetInterval(60);
        ASSERT_TRUE(rig.Tick());
        EXPECT_EQ(rig.sender->StatusText(), "Last Log: 23:13");
        EXPECT_EQ(rig.server.Requests(), QStringList{c.expected});
        EXPECT_EQ(rig.sender->LastHttpStatus(), 200);
    }
}

TEST(LiveposSend, FailuresCountAndRetryAtTheNextTick) {
    struct Case {
        const char* legend;
        int status;
        LoopbackHttpServer::Mode mode;
        bool refused;
    };
    const Case cases[] = {
        {"connection refused", 200, LoopbackHttpServer::Mode::Answer, true},
        {"server error 500", 500, LoopbackHttpServer::Mode::Answer, false},
        {"no answer within the time-out", 200, LoopbackHttpServer::Mode::NeverAnswer, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        Rig rig;
        rig.server.SetAnswer(c.status, "Fehler");
        rig.server.SetMode(c.mode);
        if (c.refused) {
            CRegistryKey key;
            writeSetting(
                key, LiveposSettings::kUrlSendPos,
                QString("http://127.0.0.1:%1/s?Name=%NickName%").arg(LoopbackHttpServer::ClosedPort()));
        }
        rig.sender->SetInterval(60);
        ASSERT_TRUE(rig.Tick());
        EXPECT_EQ(rig.sender->StatusText(), "Fault # 1");
        ASSERT_TRUE(rig.Tick()) << "retried at once";
        EXPECT_EQ(rig.sender->StatusText(), "Fault # 2");
        EXPECT_EQ(rig.sender->NextDue(), 0u);
    }
}

TEST(LiveposSend, IntervalDecidesWhenToSend) {
    struct Case {
        const char* legend;
        int interval;
        QList<std::pair<uint32_t, bool>> ticks; // tick count, a send expected
    };
    const Case cases[] = {
        {"interval 0 never sends", 0, {{1000, false}, {70000, false}}},
        {"interval 60 at once, then 60 s after the success",
         60,
         {{1000, true}, {2000, false}, {60999, false}, {61000, true}, {62000, false}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        Rig rig;
        rig.sender->SetInterval(c.interval);
        for (const auto& [tick, sends] : c.ticks) {
            rig.nTick = tick;
            EXPECT_EQ(rig.Tick(), sends) << tick;
        }
    }
}

TEST(LiveposSend, MissingNickNameStopsEverySend) {
    Rig rig;
    CRegistryKey key;
    writeSetting(key, LiveposSettings::kNickName, "");
    rig.sender->SetInterval(60);
    rig.sender->SendTick();
    EXPECT_FALSE(rig.sender->IsSending());
    EXPECT_EQ(rig.sender->StatusText(), "Please enter a Nick Name first!");
    EXPECT_TRUE(rig.server.Requests().isEmpty());
}

// Failed sends survive a killed process and go out newest first once the server answers; none twice.
TEST(LiveposSend, QueueSurvivesKillAndDrainsNewestFirst) {
    Rig rig;
    rig.server.SetAnswer(500, "Fehler");
    const pid_t child = forkAndHold([&] {
        for (int i = 1; i <= 3; ++i)
            rig.sender->SendNow(rig.server.Base() + "/q?n=" + QString::number(i));
    });
    ASSERT_GT(child, 0);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);

    LiveposQueue queue(LiveposQueue::DefaultPath(rig.root.root()));
    ASSERT_EQ(queue.Entries().size(), 3);
    rig.server.SetAnswer(200, "OK\n");
    EXPECT_TRUE(rig.sender->SendNow(rig.server.Base() + "/now").bOk);
    EXPECT_TRUE(rig.sender->SendNow(rig.server.Base() + "/later").bOk);
    EXPECT_EQ(rig.server.Requests().mid(3),
              (QStringList{"GET /now HTTP/1.1", "GET /q?n=3 HTTP/1.1", "GET /q?n=2 HTTP/1.1",
                           "GET /q?n=1 HTTP/1.1", "GET /later HTTP/1.1"}));
    EXPECT_TRUE(queue.Entries().isEmpty());
}
