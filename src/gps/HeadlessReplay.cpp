#include "gps/HeadlessReplay.h"

#include "gps/CFendixDoc.h"
#include "gps/LogSentences.h"
#include "gps/ReplayTimeline.h"
#include "gps/sources/SourceSettings.h"
#include "gps/sources/SourceTable.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"

namespace {

ReplaySummary run(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log, bool bRecord) {
    CRegistryKey key;
    CFendixDoc doc(root, clock);
    if (!bRecord) doc.KeepSettingsUnchanged();
    doc.LoadSettings();
    doc.Fix().m_nSource = SourceTable::kSimulate;
    doc.ResetStatistics(bRecord);

    ReplayTimeline timeline(clock);
    forEachLogSentence(log, readSetting(key, SourceSettings::kAcceptAllTalkers),
                       [&](const char* line, int length) {
                           timeline.follow(line, length);
                           doc.HandleSentence(line, length);
                           return true;
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

} // namespace

ReplaySummary replayLog(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log) {
    return run(root, clock, log, true);
}

ReplaySummary measureLog(const DeviceRoot& root, FixedDeviceClock& clock, QByteArrayView log) {
    return run(root, clock, log, false);
}
