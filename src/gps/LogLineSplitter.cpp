#include "gps/LogLineSplitter.h"

#include <QIODevice>
#include <algorithm>
#include <cstring>

namespace {
constexpr size_t kChunkSize = 1 << 16;
} // namespace

LogLineSplitter::LogLineSplitter(QIODevice& device)
    : m_device(device), m_buffer(kChunkSize + kMaxLineLength) {}

bool LogLineSplitter::next(std::span<char>& line) {
    for (;;) {
        const size_t available = m_nEnd - m_nPos;
        const size_t window = std::min(available, kMaxLineLength);
        const char* start = m_buffer.data() + m_nPos;
        const auto* newline = static_cast<const char*>(std::memchr(start, '\n', window));
        const size_t beforeNewline = newline ? static_cast<size_t>(newline - start) : window;
        if (const auto* cr = static_cast<const char*>(std::memchr(start, '\r', beforeNewline))) {
            const size_t at = static_cast<size_t>(cr - start);
            if (at + 1 == available && !m_bEnd) { // whether a "\n" follows is not known yet
                refill();
                continue;
            }
            if (at + 1 == available || start[at + 1] != '\n') return take(line, at + 1);
        }
        if (newline) return take(line, beforeNewline + 1);
        if (available >= kMaxLineLength) return take(line, kMaxLineLength);
        if (m_bEnd) return available > 0 && take(line, available);
        refill();
    }
}

bool LogLineSplitter::take(std::span<char>& line, size_t length) {
    line = {m_buffer.data() + m_nPos, length};
    m_nPos += length;
    return true;
}

void LogLineSplitter::refill() {
    std::memmove(m_buffer.data(), m_buffer.data() + m_nPos, m_nEnd - m_nPos);
    m_nEnd -= m_nPos;
    m_nPos = 0;
    char* free = m_buffer.data() + m_nEnd;
    const qint64 got = m_device.read(free, static_cast<qint64>(m_buffer.size() - m_nEnd));
    if (got > 0) {
        m_nEnd += m_decoder.decode(free, static_cast<size_t>(got));
        return;
    }
    m_bEnd = true;
    m_bFailed = got < 0;
}
