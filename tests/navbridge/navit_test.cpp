#include "integrations/navbridge/NavitClient.h"
#include "support/Files.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

namespace {

// The stand-in Navit on the private session bus that ctest starts for this suite.
class NavitStandIn {
public:
    explicit NavitStandIn(const QStringList& mode) {
        m_process.start(QStringLiteral(NAVIT_STANDIN_PATH), QStringList{record()} + mode);
        for (int i = 0; i < 100 && !isRegistered(); ++i)
            QThread::msleep(20);
    }
    ~NavitStandIn() {
        m_process.kill();
        m_process.waitForFinished();
    }
    static bool isRegistered() {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(
            QStringLiteral("org.navit_project.navit"));
    }
    QString record() const { return m_dir.filePath(QStringLiteral("calls.txt")); }

private:
    QTemporaryDir m_dir;
    QProcess m_process;
};

bool onPrivateBus() {
    return qEnvironmentVariableIsSet("TARVIK_PRIVATE_BUS") && QDBusConnection::sessionBus().isConnected();
}

} // namespace

// The destination arrives longitude first as "geo: LON LAT" with its name; zoom goes as +2 and -2;
// Navit's map centre comes in its Mercator metres and reads back as degrees.
TEST(NavitClient, SendsDestinationAndZoomAndReadsTheMapCentre) {
    if (!onPrivateBus()) GTEST_SKIP() << "runs under dbus-run-session only";
    const NavitStandIn navit({});
    ASSERT_TRUE(NavitStandIn::isRegistered());
    const NavitClient client;
    EXPECT_TRUE(client.SetDestination(11.54967, 48.13548, QStringLiteral("Münchner Wiesn")));
    EXPECT_TRUE(client.Zoom(2));
    EXPECT_TRUE(client.Zoom(-2));
    EXPECT_EQ(QString::fromUtf8(readFile(navit.record())),
              QStringLiteral("set_destination|geo: 11.549670 48.135480|Münchner Wiesn\nzoom|2\nzoom|-2\n"));
    const auto centre = client.MapCentre();
    ASSERT_TRUE(centre.has_value());
    EXPECT_NEAR(centre->m_dPosLong, 11.54967, 1e-5);
    EXPECT_NEAR(centre->m_dPosLat, 48.13548, 1e-5);
}

// A Navit that hangs, and none at all: the call gives up after its time-out with a reason.
TEST(NavitClient, GivesUpOnAHangingOrMissingNavit) {
    if (!onPrivateBus()) GTEST_SKIP() << "runs under dbus-run-session only";
    for (const bool running : {true, false}) {
        SCOPED_TRACE(running ? "hanging" : "missing");
        std::optional<NavitStandIn> navit;
        if (running) navit.emplace(QStringList{QStringLiteral("hang")});
        const NavitClient client(300);
        QElapsedTimer timer;
        timer.start();
        EXPECT_FALSE(client.SetDestination(1, 2, QStringLiteral("x")));
        EXPECT_LT(timer.elapsed(), 2000);
        EXPECT_FALSE(client.LastError().isEmpty());
    }
}
