#include "gps/sound/SpeedSoundTable.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

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
        writeFile(root.file(QString("My Documents/SpeedWaves/") + name), {});
    CRegistryKey key;
    key.WriteFlag("PlaySpeedSound", true);
    SpeedSoundTable table;
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

    key.WriteFlag("PlaySpeedSound", false);
    table.load(key, root.root());
    EXPECT_TRUE(table.speeds().isEmpty()) << "speed sounds off";
    table.scan("\\My Documents\\SpeedWaves\\", root.root());
    EXPECT_EQ(table.speeds().size(), 3) << "a folder in the handheld's spelling";
}

} // namespace
