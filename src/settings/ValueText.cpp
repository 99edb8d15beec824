#include "settings/ValueText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

bool isCSpace(QChar c) {
    const char16_t u = c.unicode();
    return u == ' ' || (u >= '\t' && u <= '\r');
}

qsizetype skipSpace(QStringView text, qsizetype pos) {
    while (pos < text.size() && isCSpace(text[pos]))
        ++pos;
    return pos;
}

// Reads "%d" at pos (after white space); returns the position after it, or -1 when there is no number.
qsizetype scanInt(QStringView text, qsizetype pos, int32_t& value) {
    pos = skipSpace(text, pos);
    bool negative = false;
    if (pos < text.size() && (text[pos] == '-' || text[pos] == '+')) negative = text[pos++] == '-';
    const qsizetype digitsStart = pos;
    int64_t magnitude = 0;
    while (pos < text.size() && text[pos] >= '0' && text[pos] <= '9') {
        magnitude = std::min<int64_t>(magnitude * 10 + (text[pos].unicode() - '0'), int64_t(1) << 32);
        ++pos;
    }
    if (pos == digitsStart) return -1;
    const int64_t signedValue = negative ? -magnitude : magnitude;
    value = static_cast<int32_t>(std::clamp<int64_t>(signedValue, std::numeric_limits<int32_t>::min(),
                                                     std::numeric_limits<int32_t>::max()));
    return pos;
}

} // namespace

namespace ValueText {

int32_t wtol(QStringView text) {
    int32_t value = 0;
    return scanInt(text, 0, value) < 0 ? 0 : value;
}

double wcstod(QStringView text) {
    qsizetype pos = skipSpace(text, 0);
    QByteArray ascii;
    ascii.reserve(text.size() - pos);
    for (; pos < text.size() && text[pos].unicode() < 128 && !isCSpace(text[pos]); ++pos)
        ascii.append(static_cast<char>(text[pos].unicode()));
    const char* begin = ascii.constData();
    const char* end = begin + ascii.size();
    bool negative = false;
    if (begin != end && (*begin == '+' || *begin == '-')) negative = *begin++ == '-';
    double value = 0.0;
    std::from_chars_result result{};
    if (end - begin > 2 && begin[0] == '0' && (begin[1] == 'x' || begin[1] == 'X')) {
        result = std::from_chars(begin + 2, end, value, std::chars_format::hex);
        if (result.ec == std::errc::invalid_argument) value = 0.0; // "0x" alone reads as 0
    } else {
        result = std::from_chars(begin, end, value, std::chars_format::general);
    }
    if (result.ec == std::errc::result_out_of_range) value = HUGE_VAL; // as wcstod reports overflow
    return negative ? -value : value;
}

QString formatF(double value) {
    return QString::number(value, 'f', 6);
}

int scanInts(QStringView text, QStringView format, int32_t* out, int maxCount) {
    qsizetype pos = 0;
    int count = 0;
    for (qsizetype f = 0; f < format.size(); ++f) {
        if (format[f] == '%' && f + 1 < format.size() && format[f + 1] == 'd') {
            ++f;
            int32_t value = 0;
            const qsizetype next = scanInt(text, pos, value);
            if (next < 0 || count >= maxCount) return count;
            out[count++] = value;
            pos = next;
        } else if (isCSpace(format[f])) {
            pos = skipSpace(text, pos);
        } else {
            if (pos >= text.size() || text[pos] != format[f]) return count;
            ++pos;
        }
    }
    return count;
}

QString formatRect(const Rect& r) {
    return QStringLiteral("RECT(%1,%2,%3,%4)").arg(r.left).arg(r.top).arg(r.right).arg(r.bottom);
}

Rect parseRect(QStringView text) {
    int32_t v[4] = {0, 0, 0, 0};
    scanInts(text, u"RECT(%d,%d,%d,%d)", v, 4);
    return {v[0], v[1], v[2], v[3]};
}

QString formatPoint(const Point& p) {
    return QStringLiteral("POINT(%1,%2)").arg(p.x).arg(p.y);
}

Point parsePoint(QStringView text) {
    int32_t v[2] = {0, 0};
    scanInts(text, u"POINT(%d,%d)", v, 2);
    return {v[0], v[1]};
}

QString formatSize(const Size& s) {
    return QStringLiteral("SIZE(%1,%2)").arg(s.cx).arg(s.cy);
}

Size parseSize(QStringView text) {
    int32_t v[2] = {0, 0};
    scanInts(text, u"SIZE(%d,%d)", v, 2);
    return {v[0], v[1]};
}

QString formatColour(Colour c) {
    return QStringLiteral("Color(%1,%2,%3)").arg(c & 0xFF).arg((c >> 8) & 0xFF).arg((c >> 16) & 0xFF);
}

int parseColour(QStringView text, Colour& colour) {
    int32_t v[3] = {0, 0, 0};
    const int count = scanInts(text, u"Color(%d,%d,%d)", v, 3);
    colour = makeColour(v[0], v[1], v[2]);
    return count;
}

QString formatIntList(const QList<int32_t>& values) {
    QStringList parts;
    for (int32_t v : values)
        parts << QString::number(v);
    return parts.join(',');
}

QList<int32_t> parseIntList(QStringView text) {
    QList<int32_t> values;
    if (text.isEmpty()) return values;
    for (QStringView piece : text.split(u','))
        values << wtol(piece);
    return values;
}

} // namespace ValueText
