#include "gps/sources/SentenceReader.h"

#include "gps/sources/LineAssembler.h"
#include "gps/sources/StopEvent.h"

namespace {
constexpr int kReadSize = 256;
constexpr int kIdleWaitMs = 100;
} // namespace

QString pumpStream(const StreamRead& read, LineAssembler& lines, const StopEvent& stop, SentenceSink& sink) {
    char buffer[kReadSize];
    for (;;) {
        QString error;
        const int count = read(buffer, kReadSize, error);
        if (count < 0) return error;
        if (count == 0) {
            if (stop.waitFor(kIdleWaitMs)) return {};
            continue;
        }
        lines.feed(buffer, count, [&sink](const char* line, int length) { sink.handOver(line, length); });
        if (stop.isSet()) return {};
    }
}
