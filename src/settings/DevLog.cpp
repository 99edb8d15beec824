#include "settings/DevLog.h"

#include "platform/DeviceRoot.h"
#include "platform/TickCount.h"
#include "settings/CRegistryKey.h"
#include "settings/Setting.h"

#include <QFile>
#include <cstdarg>
#include <cstdio>

namespace {

// The log file; logging is on only while it names one.
constexpr Setting<const char*> kDevelop{"Develop", "", false};

void appendEntry(const QByteArray& message) {
    CRegistryKey key;
    const QString file = readSetting(key, kDevelop);
    if (file.isEmpty()) return;
    QFile log(DeviceRoot::current().hostPath(file));
    if (!log.open(QIODevice::Append)) return;
    log.write(QByteArray::number(static_cast<int32_t>(tickCount())) + ' ' + message + '\n');
}

} // namespace

void devLog(const char* format, ...) {
    va_list args;
    va_start(args, format);
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    QByteArray message(length > 0 ? length : 0, Qt::Uninitialized);
    if (length > 0) std::vsnprintf(message.data(), length + 1, format, args);
    va_end(args);
    appendEntry(message);
}

void devLog() {
    devLog("%s line %d", "util", 137);
}
