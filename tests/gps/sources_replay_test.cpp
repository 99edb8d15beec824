#include "gps/sources/FileReadThread.h"
#include "gps/sources/StopEvent.h"
#include "sources_support.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>

namespace {

const QByteArray kRecording = "$GPRMC,120000,A,4807.038,N,01131.000,E,0.0,0.0,230394,,*13\r\n"
                              "$GPGGA,120000,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*49\r\n"
                              "$GNGSA,A,3,04,05,,,,,,,,,,,2.5,1.3,2.1*2B\r\n"
                              "$GPGSV,1,1,01,04,40,083,46?123456789*71\r\n"
                              "$GPRMC,120001,A,4807.038,N,01131.000,E,0.0,0.0,230394,,*12\r\n"
                              "$GPGGA,120001,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*48\r\n"
                              "$GPRMC,120002,A,4807.038,N,01131.000,E,0.0,0.0,230394,,*11\r\n";

struct Replayed {
    QList<QByteArray> lines;
    QList<int> pauses;
};

// Runs a replay to its end on this thread; the injected pause records instead of waiting and
// reports a stop at pause number `stopAtPause` (0: never).
Replayed replay(const QString& path, int speed, bool acceptAllTalkers, int stopAtPause) {
    Replayed result;
    auto file = std::make_unique<QFile>(path);
    EXPECT_TRUE(file->open(QIODevice::ReadOnly));
    FileReadThread reader(std::move(file), speed, acceptAllTalkers, [&](const StopEvent&, int milliseconds) {
        result.pauses.append(milliseconds);
        return result.pauses.size() == stopAtPause;
    });
    StopEvent stop;
    RecordingSink sink;
    reader.run(stop, sink);
    result.lines = sink.lines();
    return result;
}

QList<QByteArray> recordingLines(const QList<int>& indexes) {
    const QList<QByteArray> all = kRecording.split('\n');
    QList<QByteArray> lines;
    for (int index : indexes)
        lines.append(all.at(index) + '\n');
    return lines;
}

TEST(SourcesReplay, SendsGpLinesPacedByRecordedSecondsUntilTheEnd) {
    TestRoot root;
    const QString recording = writeFile(root.file("run.txt"), kRecording);
    // The GN sentence is dropped, the GSV cut at its "?"; the last sentence waits for a "$" that
    // never comes: the end of the file ends the replay.
    const QByteArray gsvCut = "$GPGSV,1,1,01,04,40,083,46";
    const QList<QByteArray> gpLines =
        recordingLines({0, 1}) + QList<QByteArray>{gsvCut} + recordingLines({4, 5});
    QList<QByteArray> allTalkers = gpLines;
    allTalkers.insert(2, "$GPGSA,A,3,04,05,,,,,,,,,,,2.5,1.3,2.1*35\r\n");
    struct Case {
        const char* legend;
        int speed;
        bool acceptAllTalkers;
        int stopAtPause;
        QList<QByteArray> lines;
        QList<int> pauses;
    } cases[] = {
        {"speed 2", 2, false, 0, gpLines, {500, 500}},
        {"speed 0 replays at recorded speed", 0, false, 0, gpLines, {1000, 1000}},
        {"speed 3: integer division", 3, false, 0, gpLines, {333, 333}},
        {"all talkers: GN fix sentence kept as GP", 1, true, 0, allTalkers, {1000, 1000}},
        {"stop during the second pause", 1, false, 2, gpLines.mid(0, 4), {1000, 1000}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        const Replayed replayed = replay(recording, c.speed, c.acceptAllTalkers, c.stopAtPause);
        EXPECT_EQ(replayed.lines, c.lines);
        EXPECT_EQ(replayed.pauses, c.pauses);
    }
}

} // namespace
