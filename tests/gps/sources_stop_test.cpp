#include "gps/sources/GpsSourceController.h"
#include "gps/sources/ReaderThread.h"
#include "settings/CRegistryKey.h"
#include "sources_support.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QFile>
#include <gtest/gtest.h>
#include <thread>

namespace {

// A reader that never looks at its stop event.
class DeafReader : public SentenceReader {
public:
    void run(const StopEvent&, SentenceSink&) override {
        for (;;)
            QThread::msleep(5);
    }
};

TEST(SourcesStop, EndsReadersWithoutDeadlockAndTerminatesDeafOnes) {
    ensureApplication();
    struct Case {
        const char* legend;
        bool deaf;
        const char* expectedLogLine;
    } cases[] = {
        {"replay blocked in its hand-over ends itself", false, "->Leave 2 FileReadThread"},
        {"a reader that never ends is terminated", true, "!!!!TerminateThread"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        TestRoot root;
        CRegistryKey key;
        key.WriteString("Develop", root.file("develop.log"));
        RecordingTarget target;
        RecordingSink sink;
        std::unique_ptr<GpsSourceController> controller;
        std::unique_ptr<ReaderThread> deaf;
        bool endedItself = false;
        if (c.deaf) {
            deaf = std::make_unique<ReaderThread>(std::make_unique<DeafReader>(), sink);
            deaf->start();
            endedItself = deaf->stopAndWait({.m_nRounds = 3, .m_nIntervalMs = 10});
        } else {
            QByteArray recording;
            for (int second = 0; second < 1000; ++second)
                recording += QString::asprintf("$GPGGA,%d,4807.038,N,01131.000,E,1,08\r\n", 100000 + second)
                                 .toLatin1();
            key.WriteString("Source", "Simulate");
            key.WriteString("File", writeFile(root.file("run.txt"), recording));
            controller = std::make_unique<GpsSourceController>(target, root.root());
            controller->setReplayPause([](const StopEvent& stop, int) { return stop.isSet(); });
            controller->updateSettings(false);
            // No events are handled meanwhile, so the reader is left waiting in its first hand-over.
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            controller->setStopRounds({.m_nRounds = 50, .m_nIntervalMs = 100});
            controller->stopSource();
            endedItself = !controller->readerRunning();
        }
        EXPECT_EQ(endedItself, !c.deaf);
        EXPECT_TRUE(readFile(root.file("develop.log")).contains(c.expectedLogLine))
            << readFile(root.file("develop.log")).toStdString();
        EXPECT_EQ(readFile(root.file("develop.log")).contains("!!!!TerminateThread"), c.deaf);
    }
}

} // namespace
