#include "gps/HeadlessReplay.h"

#include "gps/CFendixDoc.h"
#include "gps/LogSentences.h"
#include "gps/ReplayTimeline.h"
#include "gps/sources/SourceSettings.h"
#include "gps/sources/SourceTable.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"

#include <limits>

namespace {

// A source start with reset statistics, then the log's sentences on its time line up to `tUntilUtc`.
void feed(CFendixDoc& doc, FixedDeviceClock& clock, QByteArrayView log, bool bRecord, int64_t tUntilUtc) {
    CRegistryKey key;
    if (!bRecord) doc.KeepSettingsUnchanged();
    doc.LoadSettings();
    doc.Fix().m_nSource = SourceTable::kSimulate;
    doc.ResetStatistics(bRecord);

    ReplayTimeline timeline(clock);
    forEachLogSentence(log, readSetting(key, SourceSettings::kAcceptAllTalkers),
                       [&](const char* line, int length) {
                           timeline.follow(line, length);
                           if (clock.utcNow() > tUntilUtc) return false;
                           doc.HandleSentence(line, length);
                           return true;
                       });
}

ReplaySummary run(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log, bool bRecord) {
    CFendixDoc doc(root, clock);
    feed(doc, clock, log, bRecord, std::numeric_limits<int64_t>::max());

    ReplaySummary summary;
    summary.m_strLogFile = doc.Log().path();
    doc.SaveAndClose();
    summary.m_strLogFailure = doc.Log().failure();
    summary.m_stats = doc.Statistics();
    summary.m_nEpochs = doc.Epochs().epochCount();
    summary.m_nValidEpochs = doc.Epochs().validEpochCount();
    return summary;
}

} // namespace

ReplaySummary replayLog(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log) {
    return run(root, clock, log, true);
}

ReplaySummary measureLog(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log) {
    return run(root, clock, log, false);
}

void measureLogUntil(CFendixDoc& doc, FixedDeviceClock& clock, QByteArrayView log, int64_t atSeconds) {
    const int64_t tStart = clock.utcNow();
    feed(doc, clock, log, false, atSeconds < 0 ? std::numeric_limits<int64_t>::max() : tStart + atSeconds);
}
