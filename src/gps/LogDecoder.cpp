#include "gps/LogDecoder.h"

#include <QByteArray>
#include <cstring>

namespace {
constexpr QByteArrayView kUtf16Le("\xFF\xFE", 2), kUtf16Be("\xFE\xFF", 2), kUtf8("\xEF\xBB\xBF", 3);
} // namespace

bool LogDecoder::startsWithByteOrderMark(QByteArrayView log) {
    return log.startsWith(kUtf16Le) || log.startsWith(kUtf16Be) || log.startsWith(kUtf8);
}

size_t LogDecoder::decode(char* data, size_t size) {
    if (!m_bStarted) {
        m_bStarted = true;
        const QByteArrayView start(data, static_cast<qsizetype>(size));
        size_t mark = 0;
        if (start.startsWith(kUtf16Le) || start.startsWith(kUtf16Be)) {
            m_utf16.emplace(start.startsWith(kUtf16Le) ? QStringConverter::Utf16LE
                                                       : QStringConverter::Utf16BE);
            mark = 2;
        } else if (start.startsWith(kUtf8)) {
            mark = 3;
        }
        size -= mark;
        std::memmove(data, data + mark, size);
    }
    if (!m_utf16) return size;
    // A stateful decoder keeps half a character that a read cut off for the next call.
    const QString text = m_utf16->decode(QByteArrayView(data, static_cast<qsizetype>(size)));
    const QByteArray narrow = text.toLatin1();
    std::memcpy(data, narrow.constData(), static_cast<size_t>(narrow.size()));
    return static_cast<size_t>(narrow.size());
}
