#pragma once

#include "gps/LogDecoder.h"

#include <cstddef>
#include <span>
#include <vector>

class QIODevice;

// Cuts a recorded NMEA log into lines, the same way for every reader of logs (the track reader,
// `tarvik-tool nmea parse`): a line ends after "\n", after "\r\n", or after a "\r" that no "\n"
// follows (loggers that end lines with CR only), and a longer line is handed out in pieces of
// kMaxLineLength bytes, as a fixed 1024-byte line buffer reads it. Each line keeps its line end.
// The bytes are decoded first (LogDecoder: UTF-16 logs, byte order marks).
class LogLineSplitter {
public:
    static constexpr size_t kMaxLineLength = 1023;

    explicit LogLineSplitter(QIODevice& device);

    // The next line, writable in place (a reader may rewrite the talker); valid until the next call.
    // False at the end of the data or on a read error (then readFailed()).
    bool next(std::span<char>& line);
    bool readFailed() const { return m_bFailed; }

private:
    bool take(std::span<char>& line, size_t length);
    void refill();

    QIODevice& m_device;
    std::vector<char> m_buffer;
    size_t m_nPos = 0, m_nEnd = 0;
    bool m_bEnd = false, m_bFailed = false;
    LogDecoder m_decoder;
};
