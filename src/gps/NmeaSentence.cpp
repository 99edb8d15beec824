#include "gps/NmeaSentence.h"

#include <array>
#include <bit>
#include <cstdint>
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

// XORs the bytes of a line up to its next ",", "*" or NUL. Eight bytes are taken at a time where the
// machine allows: the split runs over every byte of every line of a log, and a byte at a time it
// would cost several times the checksum alone.
class ChecksumScanner {
public:
    // The first separator at or behind `c`, or `end`; every byte before it is added.
    const char* scanTo(const char* c, const char* end) {
        if constexpr (std::endian::native == std::endian::little) {
            for (; end - c >= 8; c += 8) {
                uint64_t word;
                std::memcpy(&word, c, 8);
                const uint64_t found = zeroBytes(word) | zeroBytes(word ^ kCommas) | zeroBytes(word ^ kStars);
                if (found == 0) {
                    m_nWide ^= word;
                    continue;
                }
                // The lowest flagged byte is exact: false flags only appear above a true one.
                const int before = std::countr_zero(found) / 8;
                m_nWide ^= word & ((uint64_t(1) << (before * 8)) - 1);
                return c + before;
            }
        }
        for (; c != end && !kSeparators[static_cast<unsigned char>(*c)]; ++c)
            add(*c);
        return c;
    }
    void add(char c) { m_nNarrow ^= static_cast<unsigned char>(c); }
    unsigned checksum() const {
        uint64_t folded = m_nWide ^ (m_nWide >> 32);
        folded ^= folded >> 16;
        folded ^= folded >> 8;
        return (static_cast<unsigned>(folded) ^ m_nNarrow) & 0xFF;
    }

private:
    static constexpr uint64_t kOnes = 0x0101010101010101ull;
    static constexpr uint64_t kCommas = kOnes * ',';
    static constexpr uint64_t kStars = kOnes * '*';
    // The high bit of each byte that is zero (and maybe of bytes above one that is).
    static uint64_t zeroBytes(uint64_t word) { return (word - kOnes) & ~word & (kOnes * 0x80); }

    uint64_t m_nWide = 0;
    unsigned m_nNarrow = 0;
};

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
    ChecksumScanner scanner;
    const char* c = scanner.scanTo(begin + 1, end);
    for (; c != end && *c == ','; c = scanner.scanTo(c + 1, end)) {
        if (count == NmeaFields::kMaxFields) return false;
        scanner.add(',');
        fields.m_pEnds[count - 1] = c;
        fields.m_pStarts[count++] = c + 1;
    }
    fields.m_pEnds[count - 1] = c;
    if (c == end || *c == '\0') {
        fields.m_pLineEnd = c; // no checksum to test
    } else {
        const char* lineEnd = static_cast<const char*>(std::memchr(c, '\0', static_cast<size_t>(end - c)));
        fields.m_pLineEnd = lineEnd ? lineEnd : end;
        if (!checksumMatches(c + 1, fields.m_pLineEnd, scanner.checksum())) return false;
    }
    fields.m_nCount = count;
    return true;
}

uint8_t nmeaChecksum(std::string_view sentence) {
    if (sentence.starts_with('$')) sentence.remove_prefix(1);
    uint8_t checksum = 0;
    for (const char c : sentence.substr(0, sentence.find('*')))
        checksum ^= static_cast<uint8_t>(c);
    return checksum;
}
