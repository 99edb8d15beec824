#include "platform/DeviceClock.h"

#include <QDateTime>
#include <climits>
#include <cstdio>
#include <ctime>

SystemDeviceClock::SystemDeviceClock(SetTime setTime) : m_setTime(setTime) {
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
    if (m_setTime == SetTime::Never) return;
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

namespace {

// Proleptic Gregorian date of a day number (days since 1970-01-01), after H. Hinnant's algorithm.
void civilFromDays(int64_t days, int64_t& year, int& month, int& day) {
    days += 719468;
    const int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const int64_t dayOfEra = days - era * 146097;
    const int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
    day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
}

} // namespace

int64_t dayNumber(int64_t seconds) {
    const int64_t quotient = seconds / 86400;
    return quotient * 86400 > seconds ? quotient - 1 : quotient;
}

int formatIsoLocalTime(char* buffer, int64_t localSeconds, int32_t localOffset) {
    const int64_t days = dayNumber(localSeconds);
    const auto secondOfDay = static_cast<int>(localSeconds - days * 86400);
    // Rows of a table mostly share their day, so the date is worked out once per day and thread.
    thread_local int64_t tCachedDays = INT64_MIN, tCachedYear = 0;
    thread_local int tCachedMonth = 0, tCachedDay = 0;
    if (days != tCachedDays) {
        civilFromDays(days, tCachedYear, tCachedMonth, tCachedDay);
        tCachedDays = days;
    }
    const int64_t year = tCachedYear;
    const int month = tCachedMonth, day = tCachedDay;
    const int offsetMinutes = (localOffset < 0 ? -localOffset : localOffset) / 60;
    if (year < 0 || year > 9999) {
        const int length = std::snprintf(
            buffer, kIsoLocalTimeSize, "%lld-%02d-%02dT%02d:%02d:%02d%c%02d:%02d",
            static_cast<long long>(year), month, day, secondOfDay / 3600, secondOfDay / 60 % 60,
            secondOfDay % 60, localOffset < 0 ? '-' : '+', offsetMinutes / 60 % 100, offsetMinutes % 60);
        return length < kIsoLocalTimeSize ? length : kIsoLocalTimeSize - 1;
    }
    // Written digit by digit: tables of a million rows print a time in every row.
    const auto twoDigits = [](char* at, int value) {
        at[0] = static_cast<char>('0' + value / 10 % 10);
        at[1] = static_cast<char>('0' + value % 10);
    };
    twoDigits(buffer, static_cast<int>(year / 100));
    twoDigits(buffer + 2, static_cast<int>(year % 100));
    buffer[4] = '-';
    twoDigits(buffer + 5, month);
    buffer[7] = '-';
    twoDigits(buffer + 8, day);
    buffer[10] = 'T';
    twoDigits(buffer + 11, secondOfDay / 3600);
    buffer[13] = ':';
    twoDigits(buffer + 14, secondOfDay / 60 % 60);
    buffer[16] = ':';
    twoDigits(buffer + 17, secondOfDay % 60);
    buffer[19] = localOffset < 0 ? '-' : '+';
    twoDigits(buffer + 20, offsetMinutes / 60);
    buffer[22] = ':';
    twoDigits(buffer + 23, offsetMinutes % 60);
    return 25;
}

QString isoLocalTime(int64_t localSeconds, int32_t localOffset) {
    char buffer[kIsoLocalTimeSize];
    return QString::fromLatin1(buffer, formatIsoLocalTime(buffer, localSeconds, localOffset));
}
