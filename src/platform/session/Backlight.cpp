#include "platform/session/Backlight.h"

#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <cmath>

namespace {

std::optional<int> readNumber(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    bool ok = false;
    const int value = file.readAll().trimmed().toInt(&ok);
    return ok ? std::optional<int>(value) : std::nullopt;
}

} // namespace

Backlight::Backlight(QDBusConnection bus, QString classFolder)
    : m_bus(std::move(bus)), m_strClassFolder(std::move(classFolder)) {}

std::optional<Backlight::Device> Backlight::FindDevice() const {
    const QDir folder(m_strClassFolder);
    for (const QString& name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString path = folder.filePath(name);
        const std::optional<int> brightness = readNumber(path + QStringLiteral("/brightness"));
        const std::optional<int> maximum = readNumber(path + QStringLiteral("/max_brightness"));
        if (brightness && maximum && *maximum > 0) return Device{name, path, *brightness, *maximum};
    }
    return std::nullopt;
}

int Backlight::Device::Percent() const {
    return int(std::lround(brightness * 100.0 / maximum));
}

std::optional<int> Backlight::Level() const {
    const std::optional<Device> device = FindDevice();
    if (!device) return std::nullopt;
    return device->Percent();
}

bool Backlight::Step(int stepPercent, int minPercent, int maxPercent) {
    const std::optional<Device> device = FindDevice();
    if (!device) return false;
    const int wanted =
        std::clamp(device->Percent() + stepPercent, std::min(minPercent, maxPercent), maxPercent);
    return Set(*device, int(std::lround(wanted * device->maximum / 100.0)));
}

bool Backlight::Set(const Device& device, int brightness) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1/session/auto"),
        QStringLiteral("org.freedesktop.login1.Session"), QStringLiteral("SetBrightness"));
    call << QStringLiteral("backlight") << device.name << uint(brightness);
    if (m_bus.isConnected() && m_bus.call(call, QDBus::Block, 3000).type() == QDBusMessage::ReplyMessage)
        return true;
    QFile file(device.folder + QStringLiteral("/brightness"));
    return file.open(QIODevice::WriteOnly) && file.write(QByteArray::number(brightness)) > 0;
}
