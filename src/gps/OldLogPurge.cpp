#include "gps/OldLogPurge.h"

#include "gps/RecordingSettings.h"
#include "gps/sources/SourceSettings.h"
#include "gps/sources/StopEvent.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "settings/DevLog.h"

#include <QDateTime>
#include <QDir>
#include <cstdio>
#include <optional>

namespace {

// The local opening time (seconds since 1970) that a log file's name tells; nothing when the name
// does not read as "%d-%02d-%02d_%02d-%02d.txt" or names no real date and time.
std::optional<int64_t> timeFromName(const QString& name) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0;
    if (std::sscanf(name.toLatin1().constData(), "%d-%02d-%02d_%02d-%02d.txt", &year, &month, &day, &hour,
                    &minute) != 5)
        return std::nullopt;
    const QDate date(year, month, day);
    const QTime time(hour, minute);
    if (!date.isValid() || !time.isValid()) return std::nullopt;
    // Local calendar fields taken as UTC give local seconds, the way the clock counts them.
    return QDateTime(date, time, Qt::UTC).toSecsSinceEpoch();
}

} // namespace

int OldLogPurge::ThreadDelOldLog(const StopEvent& stop, int delayMs) {
    devLog("->Start ThreadDelOldLog");
    if (stop.waitFor(delayMs)) return 0;
    const int deleted = deleteOldFiles(stop);
    devLog("->End ThreadDelOldLog");
    return deleted;
}

std::thread OldLogPurge::start(const DeviceRoot& root, const DeviceClock& clock, const StopEvent& stop) {
    return std::thread([root, &clock, &stop] { OldLogPurge(root, clock).ThreadDelOldLog(stop); });
}

int OldLogPurge::deleteOldFiles(const StopEvent& stop) {
    CRegistryKey key;
    const int64_t maxAgeHours = int64_t{readSetting(key, RecordingSettings::kDelFilesOlder)} * 24;
    QDir directory(m_root.hostPath(readSetting(key, RecordingSettings::kLogDirectory)));
    const int64_t now = m_clock.localNow();
    int deleted = 0;
    for (const QString& name : directory.entryList({"*.txt"}, QDir::Files)) {
        if (stop.isSet()) break;
        const std::optional<int64_t> opened = timeFromName(name);
        if (opened && (now - *opened) / 3600 > maxAgeHours && directory.remove(name)) ++deleted;
    }
    return deleted;
}
