#include "gps/HeadlessReplay.h"

#include "gps/CFendixDoc.h"
#include "gps/ReplayTimeline.h"
#include "gps/TalkerRewrite.h"
#include "gps/sources/LineAssembler.h"
#include "gps/sources/SourceSettings.h"
#include "gps/sources/SourceTable.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"

#include <cstring>

namespace {

// The sentences of a log in memory, cut as the receiver's line assembly cuts them (LineAssembler):
// each "$" starts a sentence that runs up to the next "$", line end included; a sentence longer
// than the assembler's buffer is cut to it and the rest dropped. Searching instead of copying byte
// by byte keeps a day's log well within a tenth of a second.
template <class OnLine> void forEachSentence(QByteArrayView log, OnLine&& onLine) {
    const char* const end = log.data() + log.size();
    const char* start =
        static_cast<const char*>(std::memchr(log.data(), '$', static_cast<size_t>(log.size())));
    while (start) {
        const char* next =
            static_cast<const char*>(std::memchr(start + 1, '$', static_cast<size_t>(end - start - 1)));
        const qsizetype length = (next ? next : end) - start;
        onLine(start, static_cast<int>(std::min<qsizetype>(length, LineAssembler::kBufferSize)));
        start = next;
    }
}

} // namespace

ReplaySummary replayLog(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log) {
    CRegistryKey key;
    CFendixDoc doc(root, clock);
    doc.LoadSettings();
    doc.Fix().m_nSource = SourceTable::kSimulate;
    doc.ResetStatistics(true);

    ReplayTimeline timeline(clock);
    // The log is mapped read-only: a sentence whose talker is rewritten is copied first.
    const bool bAcceptAllTalkers = readSetting(key, SourceSettings::kAcceptAllTalkers);
    char copy[LineAssembler::kBufferSize];
    forEachSentence(log, [&](const char* line, int length) {
        if (bAcceptAllTalkers) {
            std::memcpy(copy, line, static_cast<size_t>(length));
            if (rewriteTalkerToGp(copy, length)) line = copy;
        }
        timeline.follow(line, length);
        doc.HandleSentence(line, length);
    });

    ReplaySummary summary;
    summary.m_strLogFile = doc.Log().path();
    doc.SaveAndClose();
    summary.m_strLogFailure = doc.Log().failure();
    summary.m_stats = doc.Statistics();
    summary.m_nEpochs = doc.Epochs().epochCount();
    summary.m_nValidEpochs = doc.Epochs().validEpochCount();
    return summary;
}
