#include "demo/NmeaLineBuilder.h"

#include "platform/DeviceClock.h"

#include <QDate>

#include <cmath>
#include <cstdlib>

namespace {

constexpr int kMinuteDecimals = 4;
constexpr int64_t kMinuteSteps = 10000; // 10^kMinuteDecimals

QByteArray padded(const QByteArray& digits, int width) {
    return digits.rightJustified(width, '0');
}

} // namespace

NmeaLineBuilder::NmeaLineBuilder(const char* name) : m_line(name) {}

NmeaLineBuilder& NmeaLineBuilder::text(const QByteArray& field) {
    m_line += ',' + field;
    return *this;
}

NmeaLineBuilder& NmeaLineBuilder::empty(int count) {
    m_line += QByteArray(count, ',');
    return *this;
}

NmeaLineBuilder& NmeaLineBuilder::fixed(double value, int decimals, int width) {
    return text(padded(QByteArray::number(value, 'f', decimals), width));
}

NmeaLineBuilder& NmeaLineBuilder::integer(int64_t value, int width) {
    return text(padded(QByteArray::number(static_cast<qlonglong>(value)), width));
}

NmeaLineBuilder& NmeaLineBuilder::utcTime(int64_t utc) {
    const int64_t second = utc - dayNumber(utc) * 86400;
    return text(padded(QByteArray::number(second / 3600), 2) +
                padded(QByteArray::number(second / 60 % 60), 2) + padded(QByteArray::number(second % 60), 2) +
                ".00");
}

NmeaLineBuilder& NmeaLineBuilder::utcDate(int64_t utc) {
    const QDate date = QDate(1970, 1, 1).addDays(dayNumber(utc));
    return text(padded(QByteArray::number(date.day()), 2) + padded(QByteArray::number(date.month()), 2) +
                padded(QByteArray::number(date.year() % 100), 2));
}

NmeaLineBuilder& NmeaLineBuilder::latitude(double degrees) {
    return coordinate(degrees, 2, 'N', 'S');
}

NmeaLineBuilder& NmeaLineBuilder::longitude(double degrees) {
    return coordinate(degrees, 3, 'E', 'W');
}

NmeaLineBuilder& NmeaLineBuilder::coordinate(double degrees, int degreeDigits, char positive, char negative) {
    // Rounded as a whole, so 59.99996' becomes the next degree and never "60.0000".
    const int64_t steps = std::llround(std::fabs(degrees) * 60.0 * kMinuteSteps);
    const int64_t wholeDegrees = steps / (60 * kMinuteSteps);
    const int64_t minuteSteps = steps % (60 * kMinuteSteps);
    const QByteArray minutes = padded(QByteArray::number(minuteSteps / kMinuteSteps), 2) + '.' +
                               padded(QByteArray::number(minuteSteps % kMinuteSteps), kMinuteDecimals);
    text(padded(QByteArray::number(wholeDegrees), degreeDigits) + minutes);
    return text(QByteArray(1, degrees < 0 ? negative : positive));
}

QByteArray NmeaLineBuilder::finish() const {
    unsigned checksum = 0;
    for (qsizetype i = 1; i < m_line.size(); ++i)
        checksum ^= static_cast<unsigned char>(m_line[i]);
    return m_line + '*' + padded(QByteArray::number(checksum, 16).toUpper(), 2) + "\r\n";
}
