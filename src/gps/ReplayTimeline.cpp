#include "gps/ReplayTimeline.h"

#include "platform/DeviceClock.h"

#include <cstring>

namespace {

constexpr int kSecondsPerDay = 86400;
constexpr int kTimeField = 7; // "$GPGGA," is followed by hhmmss

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// hhmmss of a $GPGGA or $GPRMC as seconds of the day; -1 when the line carries no such stamp.
int secondOfDay(const char* line, int length) {
    if (length < kTimeField + 6) return -1;
    if (std::strncmp(line, "$GPGGA,", kTimeField) != 0 && std::strncmp(line, "$GPRMC,", kTimeField) != 0)
        return -1;
    const char* digits = line + kTimeField;
    for (int i = 0; i < 6; ++i)
        if (!isDigit(digits[i])) return -1;
    auto pair = [digits](int at) { return (digits[at] - '0') * 10 + (digits[at + 1] - '0'); };
    const int hour = pair(0), minute = pair(2), second = pair(4);
    if (hour > 23 || minute > 59 || second > 60) return -1;
    return hour * 3600 + minute * 60 + second;
}

} // namespace

void ReplayTimeline::follow(const char* line, int length) {
    const int now = secondOfDay(line, length);
    if (now < 0) return;
    if (m_nLastSecondOfDay < 0) {
        m_nLastSecondOfDay = now;
        return;
    }
    int step = now - m_nLastSecondOfDay;
    if (step > kSecondsPerDay / 2) step -= kSecondsPerDay;
    if (step <= -kSecondsPerDay / 2) step += kSecondsPerDay;
    if (step <= 0) return;
    m_clock.setUtcNow(m_clock.utcNow() + step);
    m_nLastSecondOfDay = now;
}
