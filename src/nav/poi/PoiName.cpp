#include "nav/poi/PoiName.h"

#include "settings/TextDecoding.h"

#include <QFile>
#include <algorithm>
#include <numeric>

namespace {

constexpr qsizetype kMaxName = 1023;
constexpr qsizetype kWindow = 16 * 1024; // read at once: a few names of a list, or many of a dense one

// The name at the start of `rest`.
QByteArray nameFrom(QByteArrayView rest) {
    rest.truncate(std::min(kMaxName, rest.size()));
    const auto end =
        std::find_if(rest.begin(), rest.end(), [](char c) { return c == '\0' || c == '\n' || c == '\r'; });
    return rest.first(end - rest.begin()).toByteArray();
}

} // namespace

QByteArray PoiNameAt(QByteArrayView bytes, uint32_t nameOffset) {
    if (nameOffset == 0 || nameOffset >= bytes.size()) return {};
    return nameFrom(bytes.sliced(nameOffset));
}

QString PoiNameText(const QByteArray& name) {
    return decodeText(name);
}

QByteArray PoiNameBytes(const QString& text) {
    if (auto bytes = encodeCp1252(text)) return *std::move(bytes);
    return text.toUtf8();
}

std::vector<QByteArray> ReadPoiNames(const QString& path, const std::vector<uint32_t>& nameOffsets) {
    std::vector<QByteArray> names(nameOffsets.size());
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return names;
    std::vector<size_t> order(nameOffsets.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::ranges::sort(order, {}, [&nameOffsets](size_t i) { return nameOffsets[i]; });
    QByteArray window;
    qint64 windowStart = 0;
    bool windowAtEnd = false;
    for (const size_t i : order) {
        const qint64 offset = nameOffsets[i];
        if (offset == 0) continue;
        const qint64 windowEnd = windowStart + window.size();
        if (offset < windowStart || offset >= windowEnd || (offset + kMaxName > windowEnd && !windowAtEnd)) {
            window.resize(kWindow);
            const qint64 got = file.seek(offset) ? file.read(window.data(), kWindow) : -1;
            window.truncate(std::max<qint64>(got, 0));
            windowStart = offset;
            windowAtEnd = got < kWindow;
        }
        if (offset - windowStart < window.size())
            names[i] = nameFrom(QByteArrayView(window).sliced(offset - windowStart));
    }
    return names;
}
