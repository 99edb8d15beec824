#include "platform/DeviceRoot.h"

#include <gtest/gtest.h>

TEST(DeviceRoot, MapsSystemPathsIntoTheRoot) {
    const DeviceRoot root("/srv/device");
    const struct {
        const char *system, *host;
    } cases[] = {
        {"/My Documents/TragLog", "/srv/device/My Documents/TragLog"},
        {"\\windows\\Infend.wav", "/srv/device/windows/Infend.wav"},
        {"\\POI", "/srv/device/POI"},
        {"My Documents\\MNPosition.txt", "/srv/device/My Documents/MNPosition.txt"},
        {"\\..\\..\\etc\\passwd", "/srv/device/etc/passwd"},      // never leaves the root
        {"/srv/device/Tarvik/x.ini", "/srv/device/Tarvik/x.ini"}, // already inside the root
        {"/tmp/picked.nmea", "/tmp/picked.nmea"},                 // a host file the user picked
        {"\\", "/srv/device"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(root.hostPath(c.system), c.host) << c.system;
    EXPECT_EQ(root.programFolder(), "/srv/device/Tarvik");
    EXPECT_EQ(root.registryFile(), "/srv/device/registry.db");
}

TEST(DeviceRoot, ChosenFromOptionEnvironmentOrDataHome) {
    qputenv("TARVIK_ROOT", "/from/env");
    qputenv("XDG_DATA_HOME", "/data/home");
    EXPECT_EQ(DeviceRoot::fromEnvironment("/from/option").hostFolder(), "/from/option");
    EXPECT_EQ(DeviceRoot::fromEnvironment().hostFolder(), "/from/env");
    qunsetenv("TARVIK_ROOT");
    EXPECT_EQ(DeviceRoot::fromEnvironment().hostFolder(), "/data/home/tarvik");
}
