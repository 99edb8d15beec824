#include "gps/sources/GpsSourceController.h"
#include "platform/PseudoTerminal.h"
#include "settings/CRegistryKey.h"
#include "sources_support.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>
#include <termios.h>

namespace {

const QByteArray kGga = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";

class SourcesSerial : public ::testing::Test {
protected:
    void SetUp() override { ensureApplication(); }
    TestRoot m_root;
    CRegistryKey m_key;
};

// A command for the receiver goes to the open port of the running source, never before the start or
// after the stop.
TEST_F(SourcesSerial, OpensTheSelectedPortRaw8N1AtTheConfiguredSpeedAndWritesToIt) {
    struct Case {
        const char *legend, *source;
        const char* deviceValue; // which port's device setting points at the pseudo-terminal
        const char* speed;       // nullptr: "Speed" missing
        speed_t expectedSpeed;
        int expectedIndex;
    } cases[] = {
        {"COM3 without Speed runs at 4800", "COM3", "COM3Device", nullptr, B4800, 3},
        {"an unknown name runs COM1", "Bluetooth", "COM1Device", "9600", B9600, 1},
        {"no Source at all runs COM1", nullptr, "COM1Device", "115200", B115200, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        PseudoTerminal receiver;
        ASSERT_EQ(receiver.open(), QString());
        m_key.DeleteValue("Source");
        m_key.DeleteValue("Speed");
        if (c.source) m_key.WriteString("Source", c.source);
        if (c.speed) m_key.WriteString("Speed", c.speed);
        m_key.WriteString(c.deviceValue, receiver.devicePath());
        RecordingTarget target;
        GpsSourceController controller(target, m_root.root());
        const QByteArray command = "$PSRF100,1,9600,8,1,0*0D\r\n";
        EXPECT_FALSE(controller.writeToPort(command));
        controller.updateSettings(true);
        QString error;
        int polls = 0;
        ASSERT_TRUE(processEventsUntil([&] {
            // Now and then, not at every poll: the terminal's buffer must not fill up.
            if (polls++ % 20 == 0) receiver.write(kGga + "$", error);
            return !target.sentences.isEmpty();
        }));
        EXPECT_EQ(target.sentences.first(), kGga);
        EXPECT_EQ(target.startedIndex, c.expectedIndex);
        termios settings{};
        ASSERT_TRUE(receiver.readDeviceSettings(settings));
        EXPECT_EQ(cfgetispeed(&settings), c.expectedSpeed);
        EXPECT_EQ(settings.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), tcflag_t(CS8));
        EXPECT_EQ(settings.c_lflag & (ICANON | ECHO), tcflag_t(0));
        EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL), tcflag_t(0));
        ASSERT_TRUE(controller.writeToPort(command));
        QByteArray received;
        char buffer[128];
        while (received.size() < command.size()) {
            const int n = receiver.read(buffer, sizeof buffer, 1000, error);
            if (n <= 0) break;
            received.append(buffer, n);
        }
        EXPECT_EQ(received, command);
        controller.stopSource();
        EXPECT_FALSE(controller.writeToPort(command));
    }
}

TEST_F(SourcesSerial, ReportsAPortThatCannotBeUsedOnceAndLeavesNoThread) {
    PseudoTerminal receiver;
    ASSERT_EQ(receiver.open(), QString());
    struct Case {
        const char* legend;
        QString device;
        const char* speed;
        QString message;
    } cases[] = {
        {"missing device", m_root.file("no-such-tty"), "4800",
         "Unable to open the port: No such file or directory (" + m_root.file("no-such-tty") + ")"},
        {"unknown baud rate", receiver.devicePath(), "4711",
         "Unable to configure the serial port: Invalid argument (" + receiver.devicePath() + ")"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        m_key.WriteString("Source", "COM2");
        m_key.WriteString("Speed", c.speed);
        m_key.WriteString("COM2Device", c.device);
        RecordingTarget target;
        GpsSourceController controller(target, m_root.root());
        controller.updateSettings(true);
        ASSERT_TRUE(
            processEventsUntil([&] { return !target.messages.isEmpty() && !controller.readerRunning(); }));
        controller.updateSettings(false); // a reconnect fails the same way, silently
        processEventsUntil([&] { return !controller.readerRunning(); });
        QCoreApplication::processEvents();
        EXPECT_EQ(target.messages, QStringList{c.message});
    }
}

} // namespace
