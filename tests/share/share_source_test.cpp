#include "../gps/sources_support.h"
#include "gps/share/ShareSettings.h"
#include "gps/sources/GpsSourceController.h"
#include "platform/PseudoTerminal.h"
#include "settings/CRegistryKey.h"
#include "share_support.h"
#include "support/TestRoot.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace {

// The receiver sits behind a pseudo-terminal on COM1; sharing is set up under the splitter's key.
TEST(ShareSource, SplitterTextsNeverReachTheReceiverAndSharingFollowsItsSettings) {
    ensureApplication();
    TestRoot root;
    PseudoTerminal receiver;
    ASSERT_EQ(receiver.open(), QString());
    CRegistryKey key;
    key.WriteString("Source", "COM1");
    key.WriteString("COM1Device", receiver.devicePath());
    CRegistryKey vantrel(QString::fromLatin1(GoToSettings::kVantrelKey), RegistryRoot::LocalMachine);
    RecordingTarget target;
    GpsSourceController controller(target, root.root());
    controller.updateSettings(true);
    for (int i = 0; i < 50 && !controller.writeToPort("$PING\r\n"); ++i)
        QCoreApplication::processEvents();

    struct Case {
        QByteArray text;
        QByteArray atReceiver;
        QString message;
    } cases[] = {
        {"$PSRF100,1,4800,8,1,0*0E\r\n", "$PSRF100,1,4800,8,1,0*0E\r\n", {}},
        {"@Vantrel:Simulate=4807.50000,N,01131.00000,E", {}, {}},
        {"@Vantrel:Simulate=", {}, {}},
        {"@Vantrel:Simulate=garbage", {}, "Unreadable simulation target: @Vantrel:Simulate=garbage"},
    };
    char buffer[256];
    QString error;
    while (receiver.read(buffer, sizeof buffer, 100, error) > 0) {
    }
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        target.messages.clear();
        EXPECT_TRUE(controller.writeToPort(c.text));
        QByteArray got;
        for (int n; (n = receiver.read(buffer, sizeof buffer, 100, error)) > 0;)
            got.append(buffer, n);
        EXPECT_EQ(got, c.atReceiver);
        EXPECT_EQ(target.messages, c.message.isEmpty() ? QStringList() : QStringList{c.message});
    }

    // Off by default: nothing is opened.
    EXPECT_EQ(controller.updateSharing(), QString());
    EXPECT_FALSE(controller.share().running());
    EXPECT_FALSE(QFileInfo(root.file("dev/gps0")).isSymLink());
    writeSetting(vantrel, ShareSettings::kShare, true);
    writeSetting(vantrel, ShareSettings::kTcpPort, 0);
    EXPECT_EQ(controller.updateSharing(), QString());
    EXPECT_TRUE(controller.share().running());
    EXPECT_EQ(QFileInfo(root.file("dev/gps0")).symLinkTarget(), controller.share().fanout().devicePath());
    StreamReader client = StreamReader::tcp(controller.share().fanout().tcpPort());
    ASSERT_TRUE(
        controller.share().fanout().waitForStatus([](const auto& s) { return s.m_nReaders == 1; }, 5000));
    const QByteArray gga = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47\r\n";
    QString writeError;
    receiver.write(gga + "$", writeError);
    EXPECT_EQ(client.readUpTo(gga.size()), gga);
    controller.stopSource();
}

} // namespace
