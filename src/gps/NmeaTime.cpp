#include "gps/NmeaTime.h"

#include "platform/DeviceClock.h"

#include <charconv>
#include <cstdint>
#include <limits>

namespace {

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Reads a text the way sscanf reads it with "%Nd", literal characters and "%c", but never beyond
// `end`.
class ScanCursor {
public:
    ScanCursor(const char* text, const char* end) : m_p(text), m_pEnd(end) {}

    // "%Nd" (width 0: unlimited): blanks, then an optional sign and digits within the width.
    bool readInt(int width, int& value) {
        while (m_p < m_pEnd && isBlank(*m_p))
            ++m_p;
        const char* const limit = width > 0 && m_pEnd - m_p > width ? m_p + width : m_pEnd;
        bool bNegative = false;
        if (m_p < limit && (*m_p == '+' || *m_p == '-')) bNegative = *m_p++ == '-';
        const char* const digits = m_p;
        int64_t magnitude = 0;
        for (; m_p < limit && *m_p >= '0' && *m_p <= '9'; ++m_p)
            if (magnitude < std::numeric_limits<int32_t>::max()) magnitude = magnitude * 10 + (*m_p - '0');
        if (m_p == digits) return false;
        if (magnitude > std::numeric_limits<int32_t>::max()) magnitude = std::numeric_limits<int32_t>::max();
        value = static_cast<int>(bNegative ? -magnitude : magnitude);
        return true;
    }
    bool literal(char c) {
        if (m_p == m_pEnd || *m_p != c) return false;
        ++m_p;
        return true;
    }
    bool readChar(char& c) {
        if (m_p == m_pEnd) return false;
        c = *m_p++;
        return true;
    }

private:
    const char* m_p;
    const char* m_pEnd;
};

constexpr int64_t kSecondsPerDay = 86400;
constexpr int64_t kDateGuardSeconds = 7200;
constexpr double kMinutesToDegrees = 0.016666666666666666;

bool parseCoordinate(const char* field, const char* lineEnd, int degreeDigits, char negativeHemisphere,
                     double& degrees) {
    ScanCursor scan(field, lineEnd);
    int wholeDegrees = 0, wholeMinutes = 0, fraction = 0;
    char hemisphere = 0;
    if (!scan.readInt(degreeDigits, wholeDegrees) || !scan.readInt(2, wholeMinutes) || !scan.literal('.') ||
        !scan.readInt(0, fraction) || !scan.literal(',') || !scan.readChar(hemisphere))
        return false;
    // The minutes are read again as a decimal from behind the degree digits, fraction included.
    const char* minutes = field + degreeDigits;
    const double value =
        wholeDegrees + nmeaDouble({minutes, static_cast<size_t>(lineEnd - minutes)}) * kMinutesToDegrees;
    degrees = hemisphere == negativeHemisphere ? -value : value;
    return true;
}

// Digits with an optional fraction, short enough to be exact as a double, are divided by their
// power of ten: one correctly rounded division gives the same double as strtod, only faster.
bool fastDecimal(const char* p, const char* end, double& value) {
    static constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    uint64_t mantissa = 0;
    int digits = 0, fractionDigits = 0;
    for (; p < end && *p >= '0' && *p <= '9'; ++p, ++digits)
        mantissa = mantissa * 10 + uint64_t(*p - '0');
    if (p < end && *p == '.') {
        for (++p; p < end && *p >= '0' && *p <= '9'; ++p, ++digits, ++fractionDigits)
            mantissa = mantissa * 10 + uint64_t(*p - '0');
    }
    if (digits == 0 || digits > 19 || mantissa > (uint64_t(1) << 53)) return false;
    if (p < end && (*p == 'e' || *p == 'E')) return false;
    value = static_cast<double>(mantissa) / kPowersOfTen[fractionDigits];
    return true;
}

} // namespace

bool NmeaTime::parse(const char* field, const char* lineEnd, int64_t& localTime) const {
    ScanCursor scan(field, lineEnd);
    int hour = 0, minute = 0, second = 0;
    if (!scan.readInt(2, hour) || !scan.readInt(2, minute) || !scan.readInt(2, second)) return false;
    if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 60) return false;
    int64_t utcDate = m_clock.utcNow();
    if (hour > 10)
        utcDate -= kDateGuardSeconds;
    else if (hour < 2)
        utcDate += kDateGuardSeconds;
    const int64_t midnight = dayNumber(utcDate) * kSecondsPerDay;
    localTime = midnight + hour * 3600 + minute * 60 + second + m_clock.localOffset();
    return true;
}

bool parseNmeaLatitude(const char* field, const char* lineEnd, double& degrees) {
    return parseCoordinate(field, lineEnd, 2, 'S', degrees);
}

bool parseNmeaLongitude(const char* field, const char* lineEnd, double& degrees) {
    return parseCoordinate(field, lineEnd, 3, 'W', degrees);
}

int32_t nmeaInt(std::string_view field) {
    int value = 0;
    return ScanCursor(field.data(), field.data() + field.size()).readInt(0, value) ? value : 0;
}

double nmeaDouble(std::string_view field) {
    const char* p = field.data();
    const char* const end = p + field.size();
    while (p < end && isBlank(*p))
        ++p;
    bool bNegative = false;
    if (p < end && (*p == '+' || *p == '-')) bNegative = *p++ == '-';
    double value = 0;
    if (!fastDecimal(p, end, value)) {
        const auto result = std::from_chars(p, end, value, std::chars_format::general);
        if (result.ec != std::errc()) value = 0;
    }
    return bNegative ? -value : value;
}
