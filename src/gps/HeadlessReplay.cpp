#include "gps/HeadlessReplay.h"

#include "gps/CFendixDoc.h"
#include "gps/ReplayTimeline.h"
#include "gps/sources/LineAssembler.h"
#include "gps/sources/SourceTable.h"
#include "platform/DeviceClock.h"

ReplaySummary replayLog(const DeviceRoot& root, FixedDeviceClock& clock, const QByteArray& log) {
    CFendixDoc doc(root, clock);
    doc.LoadSettings();
    doc.Fix().m_nSource = SourceTable::kSimulate;
    doc.ResetStatistics(true);

    ReplayTimeline timeline(clock);
    LineAssembler lines(LineAssembler::Options{});
    auto handOver = [&](const char* line, int length) {
        timeline.follow(line, length);
        doc.HandleSentence(line, length);
    };
    lines.feed(log.constData(), static_cast<int>(log.size()), handOver);
    // The last sentence of the file has no successor to end it; a "$" does that.
    lines.feed("$", 1, handOver);

    ReplaySummary summary;
    summary.m_strLogFile = doc.Log().path();
    doc.SaveAndClose();
    summary.m_stats = doc.Statistics();
    summary.m_nEpochs = doc.Epochs().epochCount();
    summary.m_nValidEpochs = doc.Epochs().validEpochCount();
    return summary;
}
