#pragma once

#include <QDBusConnection>
#include <QString>
#include <optional>

// The display backlight: the first device in the backlight class folder (/sys/class/backlight),
// changed through logind's SetBrightness on the caller's session, which needs no root; when logind
// is not there, written to the device's "brightness" file directly (works where udev made it
// writable). Levels are percent of the device's maximum.
class Backlight {
public:
    explicit Backlight(QDBusConnection bus, QString classFolder = QStringLiteral("/sys/class/backlight"));

    // The current level in percent; nothing without a backlight device.
    std::optional<int> Level() const;
    // Moves the level by `stepPercent` (negative: darker), kept within [minPercent, maxPercent];
    // false without a device or when neither logind nor the file took the new value.
    bool Step(int stepPercent, int minPercent, int maxPercent);

private:
    struct Device {
        QString name;
        QString folder;
        int brightness = 0;
        int maximum = 0;
        int Percent() const;
    };
    std::optional<Device> FindDevice() const;
    bool Set(const Device& device, int brightness);

    QDBusConnection m_bus;
    QString m_strClassFolder;
};
