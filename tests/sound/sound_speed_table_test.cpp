#include "gps/sound/SpeedSoundTable.h"
#include "shell/settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

void touch(const QString& path) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

// The file names played for a sequence of speeds, "-" where nothing plays.
QString playSpeeds(SpeedSoundTable& table, std::initializer_list<int> speeds) {
    QStringList played;
    for (int speed : speeds) {
        const QString file = table.nextSound(speed);
        played << (file.isEmpty() ? QString("-") : QFileInfo(file).fileName());
    }
    return played.join(' ');
}

TEST(SpeedSounds, PlaysEachNewBandOnce) {
    TestRoot root;
    for (const char* name : {"30.wav", "50.wav", "100.wav", "400.wav", "x.wav", "70.txt"})
        touch(root.file(QString("My Documents/SpeedWaves/") + name));
    CRegistryKey().WriteFlag("PlaySpeedSound", true);
    SpeedSoundTable table;
    CRegistryKey key;
    table.load(key, root.root());
    EXPECT_EQ(table.speeds(), (QList<int>{30, 50, 100})) << "only 0..399 and only <n>.wav";

    const struct {
        const char* legend;
        std::initializer_list<int> speeds;
        const char* played;
    } cases[] = {
        {"below the first band, then into it", {29, 30}, "- 30.wav"},
        {"same band stays quiet", {49}, "-"},
        {"up a band, back down", {50, 45}, "50.wav 30.wav"},
        {"a jump skips to the band it lands in", {399, 100}, "100.wav -"},
        {"below every band plays nothing and forgets nothing", {10, 100}, "- -"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(playSpeeds(table, c.speeds).toStdString(), c.played) << c.legend;
}

TEST(SpeedSounds, BuildsTheTableFromTheSettings) {
    const struct {
        const char* legend;
        bool bOn;
        const char* directory; // "SpeedWaves"; null keeps the default
        int nBands;
    } cases[] = {
        {"off: empty table", false, nullptr, 0},
        {"on, default folder", true, nullptr, 2},
        {"on, a folder of the user's with a trailing backslash", true, "\\Sounds\\Speed\\", 1},
        {"on, a folder without any sound", true, "/Empty", 0},
    };
    for (const auto& c : cases) {
        TestRoot root;
        touch(root.file("My Documents/SpeedWaves/0.wav"));
        touch(root.file("My Documents/SpeedWaves/399.wav"));
        touch(root.file("Sounds/Speed/80.wav"));
        QDir().mkpath(root.file("Empty"));
        CRegistryKey key;
        key.WriteFlag("PlaySpeedSound", c.bOn);
        if (c.directory) key.WriteString("SpeedWaves", c.directory);
        SpeedSoundTable table;
        table.load(key, root.root());
        EXPECT_EQ(table.speeds().size(), c.nBands) << c.legend;
    }
}

} // namespace
