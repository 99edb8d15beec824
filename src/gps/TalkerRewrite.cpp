#include "gps/TalkerRewrite.h"

#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

constexpr const char* kOtherTalkers[] = {"GN", "GL", "GA", "GB", "IN"};
constexpr const char* kFixSentences[] = {"GGA", "RMC", "VTG", "GLL", "GSA"};

bool isOneOf(const char* text, const char* const* names, size_t count, int length) {
    for (size_t i = 0; i < count; ++i)
        if (std::strncmp(text, names[i], static_cast<size_t>(length)) == 0) return true;
    return false;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

} // namespace

bool rewriteTalkerToGp(char* line, int length) {
    if (length < 7 || line[0] != '$' || !isOneOf(line + 1, kOtherTalkers, std::size(kOtherTalkers), 2) ||
        !isOneOf(line + 3, kFixSentences, std::size(kFixSentences), 3))
        return false;
    // The checksum is adjusted by what the new talker changes, not recomputed, so that a damaged
    // sentence stays damaged.
    const int delta = (line[1] ^ line[2]) ^ ('G' ^ 'P');
    line[1] = 'G';
    line[2] = 'P';
    const char* star = static_cast<const char*>(std::memchr(line, '*', static_cast<size_t>(length)));
    if (!star) return true;
    const int at = static_cast<int>(star - line) + 1;
    if (at + 1 >= length || hexDigit(line[at]) < 0 || hexDigit(line[at + 1]) < 0) return true;
    const int sum = (hexDigit(line[at]) * 16 + hexDigit(line[at + 1])) ^ delta;
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02X", sum);
    line[at] = digits[0];
    line[at + 1] = digits[1];
    return true;
}
