#include "platform/EvdevKeys.h"
#include "support/CoreApplication.h"
#include "support/Files.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// A virtual keyboard made through uinput; gone when destroyed, as an unplugged device is.
class VirtualKeys {
public:
    explicit VirtualKeys(const char* name) {
        m_nFd = ::open("/dev/uinput", O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (m_nFd < 0) return;
        ioctl(m_nFd, UI_SET_EVBIT, EV_KEY);
        for (int code : {KEY_F1, KEY_PLAYPAUSE, KEY_NEXTSONG})
            ioctl(m_nFd, UI_SET_KEYBIT, code);
        uinput_setup setup{};
        setup.id.bustype = BUS_USB;
        snprintf(setup.name, UINPUT_MAX_NAME_SIZE, "%s", name);
        if (ioctl(m_nFd, UI_DEV_SETUP, &setup) < 0 || ioctl(m_nFd, UI_DEV_CREATE) < 0) {
            ::close(m_nFd);
            m_nFd = -1;
        }
    }
    ~VirtualKeys() {
        if (m_nFd < 0) return;
        ioctl(m_nFd, UI_DEV_DESTROY);
        ::close(m_nFd);
    }
    bool ok() const { return m_nFd >= 0; }
    void key(int code, int value) {
        const input_event events[] = {{{}, EV_KEY, uint16_t(code), value}, {{}, EV_SYN, SYN_REPORT, 0}};
        (void)!::write(m_nFd, events, sizeof events);
    }

private:
    int m_nFd = -1;
};

} // namespace

// Presses arrive, repeats are left out, the grab holds, and the device is read again after it was
// unplugged and plugged in.
TEST(EvdevKeys, ReadsGrabsAndFindsTheDeviceAgain) {
    ensureCoreApplication();
    const char* name = "Tarvik Test Remote";
    auto remote = std::make_unique<VirtualKeys>(name);
    if (!remote->ok()) GTEST_SKIP() << "/dev/uinput cannot be opened here";
    EvdevKeys keys;
    QSignalSpy pressed(&keys, &EvdevKeys::key);
    keys.SetDevice(QString::fromLatin1(name));
    ASSERT_TRUE(QTest::qWaitFor([&] { return keys.IsOpen(); }, 5000));
    const int other = ::open(keys.OpenPath().toLocal8Bit().constData(), O_RDONLY);
    EXPECT_LT(ioctl(other, EVIOCGRAB, 1), 0) << "a second grab must fail while Tarvik holds it";
    ::close(other);

    remote->key(KEY_PLAYPAUSE, 1);
    remote->key(KEY_PLAYPAUSE, 2);
    remote->key(KEY_PLAYPAUSE, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return pressed.size() >= 2; }, 2000));
    EXPECT_EQ(pressed.at(0), (QVariantList{KEY_PLAYPAUSE, true}));
    EXPECT_EQ(pressed.at(1), (QVariantList{KEY_PLAYPAUSE, false}));

    remote.reset(); // unplugged mid-read
    ASSERT_TRUE(QTest::qWaitFor([&] { return !keys.IsOpen(); }, 3000));
    remote = std::make_unique<VirtualKeys>(name);
    ASSERT_TRUE(QTest::qWaitFor([&] { return keys.IsOpen(); }, 5000));
    pressed.clear();
    remote->key(KEY_NEXTSONG, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return pressed.size() >= 1; }, 2000));
    EXPECT_EQ(pressed.at(0), (QVariantList{KEY_NEXTSONG, true}));
}

// A path that is no input device and a name that no device has: one line, nothing read, no crash.
TEST(EvdevKeys, NamesWhatCannotBeRead) {
    ensureCoreApplication();
    QTemporaryDir folder;
    const QString plain = writeFile(folder.filePath("event0"), "not a device");
    EvdevKeys byPath(folder.path());
    byPath.SetDevice(plain);
    EXPECT_FALSE(byPath.IsOpen());
    EXPECT_EQ(byPath.Problem(), plain + " ist kein Eingabegerät.");
    EvdevKeys byName(folder.path());
    byName.SetDevice("Keine Fernbedienung");
    EXPECT_FALSE(byName.IsOpen());
    EXPECT_EQ(byName.Problem(), "");
}
