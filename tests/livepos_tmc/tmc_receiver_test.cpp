#include "gps/sources/SourceSettings.h"
#include "integrations/TmcStatus.h"
#include "integrations/tmc/CTmcReceiver.h"
#include "integrations/tmc/TmcSettings.h"
#include "integrations/tmc/TmcTimers.h"
#include "settings/CRegistryKey.h"
#include "support/CoreApplication.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

// Timers started by hand: the test fires them instead of waiting.
struct ManualTimers : TmcTimers {
    QList<std::pair<int, int>> started;
    void Start(int nTimer, int nMilliseconds) override { started << std::pair{nTimer, nMilliseconds}; }
    void Stop(int) override {}
};

// The receiver on the stand-in library with every call it makes recorded as "Name(args)".
struct Rig {
    TestRoot root;
    TmcStatus status;
    ManualTimers timers;
    QStringList calls;
    std::unique_ptr<CTmcReceiver> receiver;

    explicit Rig(int nDocumentPort, uint8_t nMode = 2) {
        ensureCoreApplication();
        CRegistryKey key;
        writeSetting(key, TmcSettings::kControl, nMode);
        CTmcReceiver::Hooks hooks;
        hooks.documentPort = [nDocumentPort] { return nDocumentPort; };
        hooks.satellites = [] { return 7; };
        receiver = std::make_unique<CTmcReceiver>(status, timers, hooks);
        receiver->Library().SetCallObserver([this](const QString& name, const QString& arguments, int) {
            calls << name + "(" + arguments + ")";
        });
    }
    bool Load(const char* path = GPSTMC_STANDIN) { return receiver->LoadLibrary(QString::fromUtf8(path)); }
    // Starts the receiver and waits for the library's notification on the UI thread.
    bool StartAndWait() {
        QSignalSpy notified(receiver.get(), &CTmcReceiver::notified);
        receiver->Start();
        return notified.wait(5000);
    }
};

} // namespace

TEST(TmcReceiver, MissingFunctionLeavesTmcOff) {
    Rig rig(3);
    EXPECT_FALSE(rig.Load(GPSTMC_INCOMPLETE));
    EXPECT_EQ(rig.receiver->StatusText(), "Could not initialize dll");
    EXPECT_EQ(rig.receiver->Library().MissingSymbols(), QStringList{"GpsTmc_ReInit"});
    rig.receiver->Start();
    EXPECT_EQ(rig.receiver->InitResult(), -1);
    EXPECT_FALSE(rig.Load("/nonexistent/libgpstmc.so"));
    EXPECT_TRUE(rig.calls.isEmpty());
}

TEST(TmcReceiver, StartsOnThePortAndSpeedOfTheDocument) {
    struct Case {
        const char* legend;
        const char* speed;
        int splitterIndex; // -1: no splitter key
        int documentPort;
        QStringList expected;
    };
    const QString filter = "GpsTmc_SetStationFilter(0 0)", tuner = "GpsTmc_ControlTuner(79 0)";
    const Case cases[] = {
        {"document port, its baud rate", "9600", -1, 3, {"GpsTmc_Init(3 9600 0x6ff00)", filter, tuner}},
        {"splitter port; the document's is the alternate",
         "9600",
         5,
         3,
         {"GpsTmc_Init(5 9600 0x6ff00)", filter, "GpsTmc_AlternateGpsPort(3 4800)", tuner}},
        {"port 0 is outside 1..9: no start", "4800", -1, 0, {}},
        {"not a serial source: no start", "4800", -1, -1, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        Rig rig(c.documentPort);
        CRegistryKey key;
        writeSetting(key, SourceSettings::kSpeed, QString::fromLatin1(c.speed));
        if (c.splitterIndex >= 0)
            CRegistryKey(QString::fromLatin1(TmcSplitterPort::kKey), RegistryRoot::LocalMachine)
                .WriteDword("Index", uint32_t(c.splitterIndex));
        ASSERT_TRUE(rig.Load());
        if (c.expected.isEmpty()) {
            rig.receiver->Start();
            EXPECT_EQ(rig.receiver->InitResult(), -1);
        } else {
            ASSERT_TRUE(rig.StartAndWait());
            EXPECT_TRUE(rig.receiver->IsHardwareReady());
        }
        EXPECT_EQ(rig.calls, c.expected);
    }
}

TEST(TmcReceiver, ModeChoiceSendsItsTunerCommand) {
    struct Case {
        int mode;
        QStringList expected; // after the hardware was reported ready in mode 2
    };
    const Case cases[] = {
        {1, {"GpsTmc_ControlTuner(0 0)"}},  {3, {"GpsTmc_ControlTuner(32 0)"}},
        {4, {"GpsTmc_ControlTuner(64 0)"}}, {5, {}},
        {0, {"GpsTmc_Uninit()"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.mode);
        Rig rig(2);
        ASSERT_TRUE(rig.Load());
        ASSERT_TRUE(rig.StartAndWait());
        rig.calls.clear();
        rig.receiver->SetMode(c.mode);
        EXPECT_EQ(rig.calls, c.expected);
        CRegistryKey key;
        EXPECT_EQ(readSetting(key, TmcSettings::kControl), c.mode);
    }
}

TEST(TmcReceiver, NoHardwareShowsErrorAndRetriesAfterFiveSeconds) {
    qputenv("TARVIK_GPSTMC_NO_HARDWARE", "1");
    Rig rig(4);
    ASSERT_TRUE(rig.Load());
    ASSERT_TRUE(rig.StartAndWait());
    EXPECT_EQ(rig.receiver->StatusText(), "Error");
    EXPECT_FALSE(rig.receiver->IsHardwareReady());
    ASSERT_FALSE(rig.timers.started.isEmpty());
    EXPECT_EQ(rig.timers.started.last(), (std::pair{int(TmcTimers::kRetry), 5000}));
    qunsetenv("TARVIK_GPSTMC_NO_HARDWARE");
    rig.calls.clear();
    QSignalSpy notified(rig.receiver.get(), &CTmcReceiver::notified);
    rig.receiver->OnTimer(TmcTimers::kRetry);
    ASSERT_TRUE(notified.wait(5000));
    EXPECT_EQ(rig.calls.mid(0, 2), (QStringList{"GpsTmc_Uninit()", "GpsTmc_Init(4 4800 0x6ff00)"}));
    EXPECT_TRUE(rig.receiver->IsHardwareReady());
}

TEST(TmcReceiver, StatusFillsTheTemplateValuesAndTheInfoFile) {
    Rig rig(1);
    writeFile(rig.root.file("Tarvik/GPSTMCInfo.ini"),
              "[GPSTMCInfoSettings]\r\nPathWhereToWriteGPSTMCInfo=\\Export\r\n");
    ASSERT_TRUE(rig.Load());
    EXPECT_FALSE(rig.status.IsCountKnown());
    ASSERT_TRUE(rig.StartAndWait());
    rig.receiver->OnTimer(TmcTimers::kStatus);
    rig.receiver->OnTimer(TmcTimers::kStatus);
    EXPECT_TRUE(rig.status.IsCountKnown());
    EXPECT_EQ(rig.status.strStation, "NDR 2");
    EXPECT_EQ(rig.receiver->HealthText(), "98 87 8790");
    const QString expected = QString("station=NDR 2\nnsat=7\nntmcm=%1\n").arg(rig.status.nMessageCount);
    EXPECT_EQ(QString::fromUtf8(readFile(rig.root.file("Export/GPSTMCInfo.txt"))), expected);
}

TEST(TmcReceiver, StationSearchAsksTheTunerForATmcStation) {
    struct Case {
        const char* legend;
        uint8_t mode;
        bool bHardwareReady;
        QStringList expected;
    };
    const Case cases[] = {
        {"no tuner control", 1, true, {"GpsTmc_ControlTuner(64 0)"}},
        {"GNS station control", 2, true, {"GpsTmc_ControlTuner(64 0)"}},
        {"automatic station with TMC", 4, true, {"GpsTmc_ControlTuner(64 0)"}},
        {"manual tuning keeps the user's station", 5, true, {}},
        {"no hardware yet", 2, false, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        Rig rig(2, c.mode);
        ASSERT_TRUE(rig.Load());
        if (c.bHardwareReady) {
            ASSERT_TRUE(rig.StartAndWait());
        }
        rig.calls.clear();
        rig.receiver->SearchStation();
        EXPECT_EQ(rig.calls, c.expected);
    }
}
