#include "demo/DemoRoot.h"
#include "demo/DemoSpeedSounds.h"
#include "platform/DeviceRoot.h"
#include "settings/CRegistryKey.h"
#include "support/Files.h"
#include "support/TestRoot.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

namespace {

const QString kDemoData = TARVIK_SOURCE_DIR "/data/demo";

// A copy of the demo data that a test may change.
void copyFolder(const QString& from, const QString& to) {
    QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        writeFile(QDir(to).filePath(QDir(from).relativeFilePath(file)), readFile(file));
    }
}

// Runs the demo root's own registry for the duration of a check.
class DemoHive {
public:
    explicit DemoHive(const QString& folder) : m_previous(RegistryHive::current()) {
        RegistryHive::setCurrent(std::make_shared<RegistryHive>(DeviceRoot(folder).registryFile()));
    }
    ~DemoHive() { RegistryHive::setCurrent(m_previous); }

private:
    std::shared_ptr<RegistryHive> m_previous;
};

// Tones that follow each other with less than 20 ms of silence count as one beep.
int beepsIn(const QByteArray& wav) {
    const int dataStart = static_cast<int>(wav.indexOf("data")) + 8;
    constexpr int kQuietSamples = 22050 / 50;
    int beeps = 0;
    int quiet = kQuietSamples;
    for (int i = dataStart; i + 1 < wav.size(); i += 2) {
        const int16_t sample = qFromLittleEndian<int16_t>(wav.constData() + i);
        if (std::abs(sample) < 500) {
            ++quiet;
            continue;
        }
        if (quiet >= kQuietSamples) ++beeps;
        quiet = 0;
    }
    return beeps;
}

} // namespace

TEST(DemoRoot, FillsItsOwnRootOncePerVersionOfTheData) {
    TestRoot user; // the user's real root stays current and must stay untouched
    QTemporaryDir demo, data;
    copyFolder(kDemoData, data.path());
    ASSERT_TRUE(prepareDemoRoot(demo.path(), data.path()));
    const DeviceRoot root(demo.path());
    const QString drive = root.hostPath("/My Documents/Demo/drive.nmea");
    EXPECT_EQ(readFile(drive), readFile(kDemoData + "/drive.nmea"));
    for (const int speed : DemoSpeedSounds::speeds())
        EXPECT_TRUE(QFile::exists(root.hostPath(QString("/My Documents/SpeedWaves/%1.wav").arg(speed))));
    for (const char* map : {"Leutkirch.png", "Leutkirch.kal", "Allgaeu.jpg", "Allgaeu.kal"})
        EXPECT_TRUE(QFile::exists(root.hostPath(QString("/My Documents/Karten/") + map))) << map;
    QString value;
    EXPECT_FALSE(CRegistryKey().ReadString("Source", value)) << "nothing in the user's registry";
    {
        DemoHive hive(demo.path());
        CRegistryKey key;
        EXPECT_TRUE(key.ReadString("Source", value));
        EXPECT_EQ(value, "Simulate");
        EXPECT_EQ(key.GetDword("SimulationSpeed", 0), 4u);
        EXPECT_TRUE(key.GetFlag("PlaySpeedSound", false));
        key.WriteString("CurrentView", "Satellitenanzeige"); // the user switches pages in the demo
    }
    QFile::remove(drive);
    ASSERT_TRUE(prepareDemoRoot(demo.path(), data.path()));
    EXPECT_TRUE(QFile::exists(drive)) << "a missing file comes back";
    {
        DemoHive hive(demo.path());
        CRegistryKey().ReadString("CurrentView", value);
        EXPECT_EQ(value, "Satellitenanzeige") << "the same data is imported once";
    }
    writeFile(data.filePath("drive.nmea"), "$Tarvik,\r\n"); // a new version of the demo
    ASSERT_TRUE(prepareDemoRoot(demo.path(), data.path()));
    EXPECT_EQ(readFile(drive), "$Tarvik,\r\n");
    {
        DemoHive hive(demo.path());
        CRegistryKey().ReadString("CurrentView", value);
        EXPECT_EQ(value, "Kartenanzeige") << "new data, new settings";
    }
    for (const char* suffix : {"", "-wal", "-shm"})
        QFile::remove(root.registryFile() + suffix);
    writeFile(root.registryFile(), "a settings file damaged beyond reading");
    ASSERT_TRUE(prepareDemoRoot(demo.path(), data.path()));
    DemoHive hive(demo.path());
    EXPECT_EQ(CRegistryKey().GetDword("SimulationSpeed", 0), 4u) << "damaged settings are repaired";
}

TEST(DemoRoot, RefusesIncompleteOrEscapingData) {
    const QByteArray header =
        "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\SOFTWARE\\Omvale\\Fendix]\r\n";
    QTemporaryDir outside;
    const struct {
        const char* legend;
        QByteArray settings; // empty: no settings.reg at all
    } cases[] = {
        {"no settings file", {}},
        {"settings regedit cannot read", "REGEDIT4 garbage\r\n[unclosed\r\n"},
        {"a file placed outside the root",
         header + "\"File\"=\"" + outside.filePath("drive.nmea").toUtf8() + "\"\r\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.legend);
        QTemporaryDir data, demo;
        writeFile(data.filePath("drive.nmea"), "$Tarvik,\r\n");
        if (!c.settings.isEmpty()) writeFile(data.filePath(DemoRoot::kSettingsFile), c.settings);
        EXPECT_FALSE(prepareDemoRoot(demo.path(), data.path()));
        EXPECT_FALSE(QFile::exists(outside.filePath("drive.nmea")));
        RegistryHive hive(QDir(demo.path()).filePath("registry.db"));
        EXPECT_FALSE(hive.findKey(RegistryRoot::CurrentUser, DemoRoot::kStampKey)) << "not stamped";
    }
    EXPECT_EQ(findDemoData({"", outside.path(), kDemoData}), kDemoData);
}

TEST(DemoSpeedSounds, OneBeepMoreForEachHigherBand) {
    const struct {
        int speed, beeps;
    } cases[] = {{30, 1}, {50, 2}, {80, 3}, {100, 4}, {40, 0} /* no such band: no file */};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.speed);
        const QByteArray wav = DemoSpeedSounds::wavOf(c.speed);
        EXPECT_EQ(wav.startsWith("RIFF"), c.beeps > 0);
        EXPECT_EQ(beepsIn(wav), c.beeps);
        if (c.beeps > 0) {
            EXPECT_EQ(readFile(kDemoData + QString("/SpeedWaves/%1.wav").arg(c.speed)), wav);
        }
    }
}
