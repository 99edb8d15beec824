#pragma once

#include <QByteArrayView>
#include <QStringDecoder>
#include <cstddef>
#include <optional>

// Recorded logs are ASCII, yet some Windows loggers write them as UTF-16 with a byte order mark,
// and some editors put a UTF-8 mark in front. The decoder takes a log's bytes in the order they are
// read and leaves one byte per character: the mark dropped, UTF-16 narrowed (beyond Latin-1: "?").
// Other logs pass unchanged.
class LogDecoder {
public:
    // Decodes the `size` bytes at `data` in place; returns how many are left there (never more).
    // The first call must see the first bytes of the log, at least three unless the log is shorter.
    size_t decode(char* data, size_t size);

    // Whether a whole log needs decoding at all.
    static bool startsWithByteOrderMark(QByteArrayView log);

private:
    bool m_bStarted = false;
    std::optional<QStringDecoder> m_utf16; // set when the log starts with a UTF-16 byte order mark
};
