#pragma once

#include "gps/TalkerRewrite.h"
#include "gps/sources/LineAssembler.h"

#include <QByteArrayView>
#include <algorithm>
#include <cstring>

// The sentences of a log in memory, cut as the receiver's line assembly cuts them (LineAssembler):
// each "$" starts a sentence that runs up to the next "$", line end included; a sentence longer
// than the assembler's buffer is cut to it and the rest dropped. With bAcceptAllTalkers other
// talkers' fix sentences come rewritten as the live sources rewrite them (the log itself stays
// as it is: a rewritten sentence is a copy). Searching instead of copying byte by byte keeps a
// day's log well within a tenth of a second. `onLine(line, length)` returns false to stop.
template <class OnLine> void forEachLogSentence(QByteArrayView log, bool bAcceptAllTalkers, OnLine&& onLine) {
    char copy[LineAssembler::kBufferSize];
    const char* const end = log.data() + log.size();
    const char* start =
        static_cast<const char*>(std::memchr(log.data(), '$', static_cast<size_t>(log.size())));
    while (start) {
        const char* next =
            static_cast<const char*>(std::memchr(start + 1, '$', static_cast<size_t>(end - start - 1)));
        const int length = static_cast<int>(std::min<qsizetype>((next ? next : end) - start, sizeof copy));
        const char* line = start;
        if (bAcceptAllTalkers) {
            std::memcpy(copy, start, static_cast<size_t>(length));
            if (rewriteTalkerToGp(copy, length)) line = copy;
        }
        if (!onLine(line, length)) return;
        start = next;
    }
}
