#include "nav/poi/AscReader.h"

#include <charconv>
#include <limits>
#include <optional>

namespace {

constexpr qsizetype kLineBuffer = 1023; // bytes of a line read at once, its "\n" included
constexpr qsizetype kShortestLine = 5;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

qsizetype skipBlanks(QByteArrayView text, qsizetype i) {
    while (i < text.size() && isBlank(text[i]))
        ++i;
    return i;
}

bool isDigit(QByteArrayView text, qsizetype i) {
    return i < text.size() && text[i] >= '0' && text[i] <= '9';
}

qsizetype skipDigits(QByteArrayView text, qsizetype i) {
    while (isDigit(text, i))
        ++i;
    return i;
}

// A decimal number as the C library reads one: sign, digits, point, digits, exponent. Without any
// digits the value is 0 and nothing is taken. Nothing when the number lies beyond a double's range.
std::optional<double> readNumber(QByteArrayView text, qsizetype& i) {
    qsizetype pos = i;
    const bool negative = pos < text.size() && text[pos] == '-';
    if (pos < text.size() && (text[pos] == '-' || text[pos] == '+')) ++pos;
    const qsizetype digits = pos;
    pos = skipDigits(text, pos);
    bool any = pos > digits;
    if (pos < text.size() && text[pos] == '.') {
        const qsizetype end = skipDigits(text, pos + 1);
        any = any || end > pos + 1;
        if (any) pos = end;
    }
    if (!any) return 0.0;
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
        qsizetype exponent = pos + 1;
        if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
        if (isDigit(text, exponent)) pos = skipDigits(text, exponent);
    }
    double value = 0.0;
    if (std::from_chars(text.data() + digits, text.data() + pos, value).ec != std::errc())
        return std::nullopt;
    i = pos;
    return negative ? -value : value;
}

} // namespace

std::vector<PoiEntry> ReadAsc(QByteArrayView bytes, PoiReading reading) {
    std::vector<PoiEntry> entries;
    entries.reserve(1000);
    qsizetype lastEntryEnd = 0;
    for (qsizetype pos = 0; pos < bytes.size();) {
        QByteArrayView line = bytes.sliced(pos, std::min(kLineBuffer, bytes.size() - pos));
        if (const qsizetype newline = line.indexOf('\n'); newline >= 0) line.truncate(newline + 1);
        const qsizetype lineStart = pos;
        const qsizetype lineEnd = pos + line.size();
        pos = lineEnd;
        if (const qsizetype nul = line.indexOf('\0'); nul >= 0) line.truncate(nul);
        if (line.size() < kShortestLine || line[0] == ';') continue;
        line.chop(1);

        qsizetype i = skipBlanks(line, 0);
        const std::optional<double> lon = readNumber(line, i);
        i = skipBlanks(line, i);
        if (!lon || i >= line.size() || line[i] != ',') continue;
        i = skipBlanks(line, i + 1);
        const std::optional<double> lat = readNumber(line, i);
        if (!lat) continue;
        if (i < line.size()) ++i; // the comma, or whatever stands there
        i = skipBlanks(line, i);
        const qsizetype nameOffset = (reading == PoiReading::Complete ? lineStart : lastEntryEnd) + i;
        lastEntryEnd = lineEnd;
        if (reading == PoiReading::AsListed && !IsKeptPoi(*lon, *lat)) continue;
        const bool representable = nameOffset <= std::numeric_limits<uint32_t>::max();
        entries.push_back({*lon, *lat, representable ? static_cast<uint32_t>(nameOffset) : 0u});
    }
    return entries;
}
