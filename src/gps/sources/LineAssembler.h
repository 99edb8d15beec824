#pragma once

#include "gps/TalkerRewrite.h"

// Cuts a byte stream into sentences, the way the receiver port is read: a "$" ends the line in
// the buffer (so a sentence is handed on only when the next one begins, its "\r\n" included), and
// so does any byte arriving while the buffer holds more than 511 bytes. Finished lines that do not
// start with "$" are dropped. Not thread-safe: one assembler per reader thread.
class LineAssembler {
public:
    static constexpr int kBufferSize = 512;
    // What the splitter driver puts into the stream: "?" and the nine bytes behind it.
    static constexpr int kSplitterDataLength = 10;

    struct Options {
        bool m_bSkipSplitterData = false; // drop "?" with the nine bytes behind it (serial ports)
        bool m_bEndAtNewline = false;     // a "\n" also ends a line (line-based streams such as gpsd's)
        bool m_bAcceptAllTalkers = false; // rewrite other talkers' fix sentences to "$GP" (TalkerRewrite.h)
    };

    explicit LineAssembler(Options options) : m_options(options) {}

    // Takes `count` bytes; calls onLine(const char* line, int length) for every finished sentence.
    // The line lives in the assembler's buffer until onLine returns.
    template <class OnLine> void feed(const char* data, int count, OnLine&& onLine) {
        for (int i = 0; i < count; ++i) {
            const char byte = data[i];
            if (m_nSkip > 0) {
                --m_nSkip;
                continue;
            }
            if (byte == '?' && m_options.m_bSkipSplitterData) {
                m_nSkip = kSplitterDataLength - 1;
                continue;
            }
            if (byte == '$' || m_nLength >= kBufferSize) finishLine(onLine);
            m_buffer[m_nLength++] = byte;
            if (byte == '\n' && m_options.m_bEndAtNewline) finishLine(onLine);
        }
    }

    void clear() {
        m_nLength = 0;
        m_nSkip = 0;
    }

private:
    template <class OnLine> void finishLine(OnLine& onLine) {
        if (m_nLength > 0 && m_buffer[0] == '$') {
            if (m_options.m_bAcceptAllTalkers) rewriteTalkerToGp(m_buffer, m_nLength);
            onLine(static_cast<const char*>(m_buffer), m_nLength);
        }
        m_nLength = 0;
    }

    Options m_options;
    char m_buffer[kBufferSize] = {};
    int m_nLength = 0;
    int m_nSkip = 0;
};
