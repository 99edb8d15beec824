#include "gps/TrackLogWriter.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

constexpr int64_t kMay22At1200 = 1779451200; // 2026-05-22 12:00:00 UTC, a second 0
const QByteArray kGga = "$GPGGA,120000,4806.0,N,01130.0,E,1,08,0.9,500.0,M,47.0,M,,*4F\r\n";
const QByteArray kRmc = "$GPRMC,120000,A,4806.0,N,01130.0,E,19.4,0.0,220526,,*2A\r\n";
const QByteArray kVtg = "$GPVTG,0.0,T,,M,19.4,N,36.0,K*4C\r\n";

void write(TrackLogWriter& writer, const QByteArray& line) {
    writer.writeSentence(line.constData(), static_cast<int>(line.size()));
}

TEST(TrackLogWriter, ThinsSentencesPerType) {
    struct Case {
        const char* legend;
        int32_t nLogDelay;
        const char* logType;
        int nGga, nRmc, nVtg; // written out of 30 seconds with one of each a second
    } cases[] = {
        // clang-format off
        {"LogDelay 10 writes one GGA every 10 s", 10, "$GPGGA", 3, 0, 0},
        {"LogDelay 0 writes every GGA", 0, "$GPGGA", 30, 0, 0},
        {"each listed type has its own delay; GGA is put in front of RMC", 10, "$GPRMC", 3, 3, 0},
        {"empty logs GGA only", 0, "", 30, 0, 0},
        {"names are cut to six characters", 0, "$GPVTGXX", 30, 0, 30},
        {"a blank after the comma names no type", 0, "$GPGGA, $GPVTG", 30, 0, 0},
        // clang-format on
    };
    for (const Case& c : cases) {
        TestRoot root;
        CRegistryKey key;
        key.WriteDword("LogDelay", static_cast<uint32_t>(c.nLogDelay));
        key.WriteString("LogType", c.logType);
        FixedDeviceClock clock(kMay22At1200);
        TrackLogWriter writer(root.root(), clock);
        ASSERT_TRUE(writer.open()) << c.legend;
        for (int second = 0; second < 30; ++second) {
            clock.setUtcNow(kMay22At1200 + second);
            for (const QByteArray& line : {kGga, kRmc, kVtg})
                write(writer, line);
        }
        writer.close();
        const QByteArray bytes = readFile(writer.path());
        EXPECT_EQ(bytes.count(kGga), c.nGga) << c.legend;
        EXPECT_EQ(bytes.count(kRmc), c.nRmc) << c.legend;
        EXPECT_EQ(bytes.count(kVtg), c.nVtg) << c.legend;
    }
}

TEST(TrackLogWriter, NamesWritesAndOverwritesFiles) {
    TestRoot root;
    CRegistryKey().WriteDword("LogDelay", 0);
    FixedDeviceClock clock(kMay22At1200 + 31, 7200); // 14:00:31 local
    TrackLogWriter writer(root.root(), clock);
    ASSERT_TRUE(writer.open());
    EXPECT_EQ(writer.path(), root.file("My Documents/TragLog/2026-05-22_14-00.txt"));
    write(writer, kGga);
    clock.setUtcNow(kMay22At1200 + 50);
    ASSERT_TRUE(writer.open()) << "a second run within the same minute";
    writer.close();
    const QByteArray header = readFile(writer.path());
    EXPECT_EQ(header.size(), 266) << "the first run's sentence is overwritten";
    EXPECT_TRUE(header.startsWith("$Tarvik," + QByteArray(256, ' ') + "\r\n"));
}

TEST(TrackLogWriter, StaysOffWhenSwitchedOffOrUnwritable) {
    struct Case {
        const char* legend;
        int32_t nLogDelay;
        const char* directory;
    } cases[] = {
        {"LogDelay -1 creates no file", -1, "/My Documents/TragLog"},
        {"a directory below a plain file cannot be created", 0, "/blocker/TragLog"},
    };
    for (const Case& c : cases) {
        TestRoot root;
        writeFile(root.file("blocker"), {});
        CRegistryKey key;
        key.WriteDword("LogDelay", static_cast<uint32_t>(c.nLogDelay));
        key.WriteString("LogDirectory", c.directory);
        FixedDeviceClock clock(kMay22At1200);
        TrackLogWriter writer(root.root(), clock);
        EXPECT_FALSE(writer.open()) << c.legend;
        write(writer, kGga);
        EXPECT_FALSE(writer.isOpen()) << c.legend;
        EXPECT_TRUE(writer.path().isEmpty()) << c.legend;
        EXPECT_FALSE(QFile::exists(root.file("My Documents/TragLog/2026-05-22_12-00.txt"))) << c.legend;
    }
}

TEST(TrackLogWriter, FlushesInTheFirstSecondOfAMinuteAndReopens) {
    TestRoot root;
    CRegistryKey key;
    key.WriteDword("LogDelay", 0);
    key.WriteString("LogType", "$GPGGA,$GPRMC");
    FixedDeviceClock clock(kMay22At1200 - 2); // 11:59:58
    TrackLogWriter writer(root.root(), clock);
    ASSERT_TRUE(writer.open());
    write(writer, kGga);
    EXPECT_EQ(readFile(writer.path()).size(), 0) << "second 58: still in the buffer";
    clock.setUtcNow(kMay22At1200);
    write(writer, kRmc);
    EXPECT_EQ(readFile(writer.path()).size(), 266 + kGga.size() + kRmc.size()) << "second 0: flushed";
    writer.close();
    write(writer, kVtg);
    write(writer, kGga);
    writer.close();
    EXPECT_TRUE(readFile(writer.path()).endsWith(kRmc + kGga)) << "reopened at its end; VTG is not listed";
}

} // namespace
