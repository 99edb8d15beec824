#include "settings/TextDecoding.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <optional>

namespace {

// Windows-1252 differs from Latin-1 only in 0x80..0x9F; the five unassigned bytes map to themselves.
constexpr std::array<char16_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString fromCp1252(const QByteArray& bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        const auto b = static_cast<uint8_t>(byte);
        *out++ = QChar(b >= 0x80 && b < 0xA0 ? kCp1252High[b - 0x80] : char16_t(b));
    }
    return text;
}

QString decodeWith(QStringConverter::Encoding encoding, QByteArrayView bytes) {
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    return decoder.decode(bytes);
}

// Text without a byte order mark is taken as UTF-16 when most of its zero bytes sit on one side.
std::optional<QStringConverter::Encoding> guessUtf16(const QByteArray& bytes) {
    if (bytes.size() < 2) return std::nullopt;
    qsizetype evenZeros = 0, oddZeros = 0;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        evenZeros += bytes[i] == 0;
        oddZeros += bytes[i + 1] == 0;
    }
    const qsizetype pairs = bytes.size() / 2;
    if (oddZeros * 2 > pairs && evenZeros * 8 < pairs) return QStringConverter::Utf16LE;
    if (evenZeros * 2 > pairs && oddZeros * 8 < pairs) return QStringConverter::Utf16BE;
    return std::nullopt;
}

// The text when the bytes are valid UTF-8; decoded once, as files can be large.
std::optional<QString> fromValidUtf8(const QByteArray& bytes) {
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString decoded = decoder.decode(bytes); // decoding happens on conversion to QString
    if (decoder.hasError()) return std::nullopt;
    return decoded;
}

} // namespace

QString decodeText(const QByteArray& bytes) {
    if (bytes.startsWith("\xFF\xFE"))
        return decodeWith(QStringConverter::Utf16LE, QByteArrayView(bytes).sliced(2));
    if (bytes.startsWith("\xFE\xFF"))
        return decodeWith(QStringConverter::Utf16BE, QByteArrayView(bytes).sliced(2));
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return decodeWith(QStringConverter::Utf8, QByteArrayView(bytes).sliced(3));
    if (const auto utf16 = guessUtf16(bytes)) return decodeWith(*utf16, bytes);
    if (auto utf8 = fromValidUtf8(bytes)) return *std::move(utf8);
    return fromCp1252(bytes);
}

bool isText(const QByteArray& bytes) {
    if (!bytes.contains('\0')) return true;
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") || guessUtf16(bytes).has_value();
}

std::optional<QByteArray> encodeCp1252(const QString& text) {
    QByteArray bytes(text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
            *out++ = static_cast<char>(unit);
            continue;
        }
        const auto high = std::ranges::find(kCp1252High, unit);
        if (high == kCp1252High.end()) return std::nullopt;
        *out++ = static_cast<char>(0x80 + (high - kCp1252High.begin()));
    }
    return bytes;
}
