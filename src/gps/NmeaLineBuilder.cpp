#include "gps/NmeaLineBuilder.h"

#include "gps/NmeaSentence.h"
#include "platform/DeviceClock.h"

#include <QDate>

#include <charconv>
#include <cmath>

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
    return text(fixedText(value, decimals, width));
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

QByteArray NmeaLineBuilder::finish(HexCase checksumCase) const {
    QByteArray hex =
        padded(QByteArray::number(nmeaChecksum(std::string_view(m_line.constData(), m_line.size())), 16), 2);
    if (checksumCase == HexCase::Upper) hex = hex.toUpper();
    return m_line + '*' + hex + "\r\n";
}

QByteArray NmeaLineBuilder::fixedText(double value, int decimals, int width) {
    char digits[350]; // the longest double in fixed notation, with its sign and point
    const auto result =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    const QByteArray text(digits, result.ptr - digits);
    if (!text.startsWith('-')) return padded(text, width);
    return '-' + padded(text.mid(1), width - 1);
}
