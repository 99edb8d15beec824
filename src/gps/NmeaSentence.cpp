#include "gps/NmeaSentence.h"

#include <array>
#include <cstring>

namespace {

int hexDigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The number behind the "*": blanks, an optional "0x", then hexadecimal digits up to the first
// other character. False when there is no digit or it differs from the checksum.
bool checksumMatches(const char* text, const char* end, unsigned checksum) {
    while (text < end && isBlank(*text))
        ++text;
    if (end - text >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) text += 2;
    unsigned value = 0;
    bool bDigits = false;
    for (; text < end; ++text) {
        const int digit = hexDigitValue(*text);
        if (digit < 0) break;
        bDigits = true;
        if (value <= 0xFF) value = value * 16 + static_cast<unsigned>(digit); // beyond 0xFF it cannot match
    }
    return bDigits && value == checksum;
}

constexpr auto kSeparators = [] {
    std::array<bool, 256> table{};
    table[','] = table['*'] = table['\0'] = true;
    return table;
}();

} // namespace

std::string_view NmeaFields::field(int index) const {
    if (index < 0 || index >= m_nCount) return {};
    return {m_pStarts[index], static_cast<size_t>(m_pEnds[index] - m_pStarts[index])};
}

bool NmeaFields::isNamed(std::string_view name) const {
    const char* begin = m_pStarts[0];
    return m_nCount > 0 && static_cast<size_t>(m_pLineEnd - begin) >= name.size() &&
           std::memcmp(begin, name.data(), name.size()) == 0;
}

bool splitNmeaLine(std::string_view line, NmeaFields& fields) {
    fields.m_nCount = 0;
    if (line.empty()) return false;
    const char* const begin = line.data();
    const char* const end = begin + line.size();
    fields.m_pStarts[0] = begin;
    int count = 1;
    unsigned checksum = 0;
    const char* c = begin + 1;
    for (; c != end; ++c) {
        const auto ch = static_cast<unsigned char>(*c);
        // One test per character in the common case: only ",", "*" and NUL need a decision.
        if (kSeparators[ch]) {
            if (ch != ',') break;
            if (count == NmeaFields::kMaxFields) return false;
            fields.m_pEnds[count - 1] = c;
            fields.m_pStarts[count++] = c + 1;
        }
        checksum ^= ch;
    }
    fields.m_pEnds[count - 1] = c;
    if (c == end || *c == '\0') {
        fields.m_pLineEnd = c; // no checksum to test
    } else {
        const char* lineEnd = static_cast<const char*>(std::memchr(c, '\0', static_cast<size_t>(end - c)));
        fields.m_pLineEnd = lineEnd ? lineEnd : end;
        if (!checksumMatches(c + 1, fields.m_pLineEnd, checksum)) return false;
    }
    fields.m_nCount = count;
    return true;
}
