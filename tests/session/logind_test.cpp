#include "platform/session/Backlight.h"
#include "platform/session/SystemReboot.h"
#include "support/CoreApplication.h"
#include "support/Files.h"

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <mutex>

namespace {

// What the stand-in logind was asked, in order.
struct Calls {
    std::mutex mutex;
    QStringList lines;
    void add(const QString& line) {
        std::lock_guard lock(mutex);
        lines << line;
    }
    QStringList taken() {
        std::lock_guard lock(mutex);
        return std::exchange(lines, {});
    }
};

class StandInManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public:
    explicit StandInManager(Calls& calls) : m_calls(calls) {}
public Q_SLOTS:
    void Reboot(bool interactive) { m_calls.add(QStringLiteral("Reboot %1").arg(interactive)); }

private:
    Calls& m_calls;
};

// SetBrightness as logind does it: the device's file gets the value.
class StandInSession : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Session")
public:
    StandInSession(Calls& calls, QString classFolder)
        : m_calls(calls), m_strClassFolder(std::move(classFolder)) {}
public Q_SLOTS:
    void SetBrightness(const QString& subsystem, const QString& name, uint brightness) {
        m_calls.add(QStringLiteral("SetBrightness %1 %2 %3").arg(subsystem, name).arg(brightness));
        writeFile(m_strClassFolder + '/' + name + "/brightness", QByteArray::number(brightness));
    }

private:
    Calls& m_calls;
    QString m_strClassFolder;
};

// A private bus (never the machine's system bus) with a stand-in logind answering on a thread of
// its own, so that the blocking calls of the code under test get their answers.
class PrivateLogind : public testing::Test {
protected:
    void SetUp() override {
        ensureCoreApplication();
        m_daemon.start(DBUS_DAEMON, {"--session", "--nofork", "--print-address"});
        ASSERT_TRUE(m_daemon.waitForReadyRead(5000));
        m_strAddress = QString::fromUtf8(m_daemon.readLine().trimmed());
        m_thread.start();
        m_pManager = new StandInManager(m_calls);
        m_pSession = new StandInSession(m_calls, m_dir.path());
        m_pManager->moveToThread(&m_thread);
        m_pSession->moveToThread(&m_thread);
        QDBusConnection service = QDBusConnection::connectToBus(m_strAddress, "stand-in");
        ASSERT_TRUE(service.registerService("org.freedesktop.login1"));
        service.registerObject("/org/freedesktop/login1", m_pManager, QDBusConnection::ExportAllSlots);
        service.registerObject("/org/freedesktop/login1/session/auto", m_pSession,
                               QDBusConnection::ExportAllSlots);
    }
    void TearDown() override {
        QDBusConnection::disconnectFromBus("stand-in");
        QDBusConnection::disconnectFromBus("client");
        m_thread.quit();
        m_thread.wait();
        delete m_pManager;
        delete m_pSession;
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    QDBusConnection client() { return QDBusConnection::connectToBus(m_strAddress, "client"); }

    QProcess m_daemon;
    QString m_strAddress;
    QThread m_thread;
    Calls m_calls;
    QTemporaryDir m_dir;
    StandInManager* m_pManager = nullptr;
    StandInSession* m_pSession = nullptr;
};

} // namespace

TEST_F(PrivateLogind, RebootAsksLogind) {
    EXPECT_TRUE(requestReboot(client()));
    EXPECT_EQ(m_calls.taken(), QStringList{"Reboot 0"});
    EXPECT_FALSE(requestReboot(QDBusConnection::connectToBus("unix:path=/nonexistent", "nowhere")));
}

TEST_F(PrivateLogind, BacklightStepsWithinTheLimits) {
    writeFile(m_dir.filePath("panel/max_brightness"), "200\n");
    writeFile(m_dir.filePath("panel/brightness"), "100\n");
    Backlight backlight(client(), m_dir.path());
    const struct {
        int step, minPercent, maxPercent;
        const char* call; // what logind was asked; the stand-in writes it to the file
    } cases[] = {
        {10, 10, 100, "SetBrightness backlight panel 120"},
        {-10, 10, 100, "SetBrightness backlight panel 100"},
        {10, 10, 55, "SetBrightness backlight panel 110"},
        {10, 10, 55, "SetBrightness backlight panel 110"},
        {-60, 20, 100, "SetBrightness backlight panel 40"},
        {-10, 20, 100, "SetBrightness backlight panel 40"},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(backlight.Step(c.step, c.minPercent, c.maxPercent));
        EXPECT_EQ(m_calls.taken(), QStringList{c.call});
    }
    EXPECT_EQ(backlight.Level(), 20);
}

// Without logind the device's own file is written; without a device nothing is.
TEST(Backlight, WritesTheFileWithoutLogind) {
    ensureCoreApplication();
    QTemporaryDir dir;
    writeFile(dir.filePath("acpi_video0/max_brightness"), "10");
    writeFile(dir.filePath("acpi_video0/brightness"), "5");
    Backlight backlight(QDBusConnection::connectToBus("unix:path=/nonexistent", "none"), dir.path());
    EXPECT_TRUE(backlight.Step(10, 0, 100));
    EXPECT_EQ(readFile(dir.filePath("acpi_video0/brightness")), "6");
    QTemporaryDir empty;
    EXPECT_FALSE(Backlight(QDBusConnection::connectToBus("unix:path=/nonexistent", "none"), empty.path())
                     .Step(10, 0, 100));
}

#include "logind_test.moc"
