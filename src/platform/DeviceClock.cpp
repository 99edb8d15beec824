#include "platform/DeviceClock.h"

#include <QDateTime>
#include <ctime>

SystemDeviceClock::SystemDeviceClock() {
    const time_t now = time(nullptr);
    tm local{};
    localtime_r(&now, &local);
    m_nLocalOffset = static_cast<int32_t>(local.tm_gmtoff);
}

int64_t SystemDeviceClock::utcNow() const {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec;
}

void SystemDeviceClock::setSystemTime(int64_t utcSeconds) {
    const timespec when{static_cast<time_t>(utcSeconds), 0};
    (void)clock_settime(CLOCK_REALTIME, &when);
}

std::optional<FixedDeviceClock> FixedDeviceClock::fromIso8601(const QString& text) {
    const QDateTime when = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    if (!when.isValid()) return std::nullopt;
    return FixedDeviceClock(when.toSecsSinceEpoch(), when.offsetFromUtc());
}

void FixedDeviceClock::setSystemTime(int64_t utcSeconds) {
    ++m_nSetTimeRequests;
    m_tLastSetTime = utcSeconds;
}

QString isoLocalTime(int64_t localSeconds, int32_t localOffset) {
    const QDateTime local =
        QDateTime::fromSecsSinceEpoch(localSeconds - localOffset, Qt::OffsetFromUTC, localOffset);
    return local.toString(Qt::ISODate);
}
