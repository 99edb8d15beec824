#include "nav/poi/PoiName.h"

#include "settings/TextDecoding.h"

#include <algorithm>

namespace {

constexpr qsizetype kMaxName = 1023;

qsizetype nameLength(QByteArrayView bytes) {
    const auto end =
        std::find_if(bytes.begin(), bytes.end(), [](char c) { return c == '\0' || c == '\n' || c == '\r'; });
    return end - bytes.begin();
}

} // namespace

QByteArray PoiNameAt(QByteArrayView bytes, uint32_t nameOffset) {
    if (nameOffset == 0 || nameOffset >= bytes.size()) return {};
    const QByteArrayView rest = bytes.sliced(nameOffset, std::min(kMaxName, bytes.size() - nameOffset));
    return rest.first(nameLength(rest)).toByteArray();
}

QString PoiNameText(const QByteArray& name) {
    return decodeText(name);
}

QByteArray PoiNameBytes(const QString& text) {
    if (auto bytes = encodeCp1252(text)) return *std::move(bytes);
    return text.toUtf8();
}

PoiNameReader::PoiNameReader(const QString& path) : m_file(path) {
    // Unbuffered: every name is one read at its own place, and a buffer would be refilled for each.
    m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

QByteArray PoiNameReader::read(uint32_t nameOffset) {
    if (nameOffset == 0 || !m_file.isOpen() || !m_file.seek(nameOffset)) return {};
    char buffer[kMaxName];
    const qint64 got = m_file.read(buffer, kMaxName);
    if (got <= 0) return {};
    const QByteArrayView bytes(buffer, got);
    return bytes.first(nameLength(bytes)).toByteArray();
}
