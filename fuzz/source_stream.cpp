// Any bytes as they come from a receiver, a replay file or a network stream: the line assembly in
// each of its modes, the talker rewrite and the replay pacing must keep every sentence inside the
// 512-byte buffer and starting with "$". The first byte chooses the mode.
#include "gps/sources/LineAssembler.h"
#include "gps/sources/ReplayPacer.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const LineAssembler::Options options{.m_bSkipSplitterData = (data[0] & 1) != 0,
                                         .m_bEndAtNewline = (data[0] & 2) != 0,
                                         .m_bAcceptAllTalkers = (data[0] & 4) != 0};
    LineAssembler lines(options);
    ReplayPacer pacer(data[0] >> 4, (data[0] & 8) != 0);
    // Fed in pieces of changing size, as reads of a port deliver them.
    size_t offset = 1;
    for (size_t piece = 1; offset < size; piece = piece % 300 + 7) {
        const size_t count = piece < size - offset ? piece : size - offset;
        lines.feed(reinterpret_cast<const char*>(data + offset), static_cast<int>(count),
                   [&](const char* line, int length) {
                       if (length <= 0 || length > LineAssembler::kBufferSize || line[0] != '$')
                           __builtin_trap();
                       if (pacer.pauseAfter(line, length) < 0) __builtin_trap();
                   });
        offset += count;
    }
    return 0;
}
