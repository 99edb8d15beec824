#include "gps/SyntheticGga.h"

#include "platform/DeviceClock.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

// printf's "%0<width>.<decimals>f" without the process locale: the line must carry a decimal point.
void appendFixed(std::string& text, double value, int decimals, int width) {
    char digits[64];
    const auto result =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
    const auto length = static_cast<int>(result.ptr - digits);
    const bool bNegative = length > 0 && digits[0] == '-';
    if (bNegative) text += '-';
    if (length < width) text.append(static_cast<size_t>(width - length), '0');
    text.append(digits + (bNegative ? 1 : 0), result.ptr);
}

void appendInt(std::string& text, long long value, int width) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%0*lld", width, value);
    text += digits;
}

void appendCoordinate(std::string& text, double degrees, int degreeDigits, char positive, char negative,
                      bool bPositive) {
    const double magnitude = std::fabs(degrees);
    const double whole = std::floor(magnitude);
    appendInt(text, static_cast<long long>(whole), degreeDigits);
    appendFixed(text, (magnitude - whole) * 60.0, 5, 8);
    text += ',';
    text += bPositive ? positive : negative;
    text += ',';
}

} // namespace

std::string buildSyntheticGga(const GpsFix& fix, int32_t localOffset) {
    const int64_t utc = fix.m_tFixTime - localOffset;
    const int64_t secondOfDay = utc - dayNumber(utc) * 86400;
    std::string line = "$GPGGA,";
    appendInt(line, secondOfDay / 3600, 2);
    appendInt(line, secondOfDay / 60 % 60, 2);
    appendInt(line, secondOfDay % 60, 2);
    line += ".00,";
    appendCoordinate(line, fix.m_dPosLat, 2, 'N', 'S', fix.m_dPosLat > 0);
    appendCoordinate(line, fix.m_dPosLong, 3, 'E', 'W', fix.m_dPosLong > 0);
    appendInt(line, fix.m_nValid, 1);
    line += ',';
    appendInt(line, fix.m_nSatellites, 1);
    line += fix.hasFix() ? ",1.2" : ",50.0";
    line += ",0.0,M,,,,0000";
    unsigned checksum = 0;
    for (size_t i = 1; i < line.size(); ++i)
        checksum ^= static_cast<unsigned char>(line[i]);
    char tail[8];
    std::snprintf(tail, sizeof tail, "*%02x\r\n", checksum);
    return line + tail;
}
