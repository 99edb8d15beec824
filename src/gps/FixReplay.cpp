#include "gps/FixReplay.h"

#include "gps/LogSentences.h"
#include "gps/NmeaInterpreter.h"
#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"
#include "gps/ReplayTimeline.h"
#include "platform/DeviceClock.h"

#include <QDate>

namespace {

constexpr int64_t kSecondsPerDay = 86400;

// UTC seconds since 1970 of a $GPRMC's date and time; nothing when either is unreadable.
std::optional<int64_t> rmcUtc(std::string_view line) {
    NmeaFields fields;
    if (!splitNmeaLine(line, fields) || !fields.isNamed("$GPRMC") || fields.count() < 10) return std::nullopt;
    const std::string_view ddmmyy = fields.field(9);
    if (ddmmyy.size() != 6) return std::nullopt;
    const int value = nmeaInt(ddmmyy);
    const QDate date(2000 + value % 100, value / 100 % 100, value / 10000);
    if (!date.isValid()) return std::nullopt;
    // At noon of that day the time field cannot be moved across midnight.
    const FixedDeviceClock noon(QDate(1970, 1, 1).daysTo(date) * kSecondsPerDay + kSecondsPerDay / 2);
    int64_t tUtc = 0;
    if (!NmeaTime(noon).parse(fields.fieldStart(1), fields.lineEnd(), tUtc)) return std::nullopt;
    return tUtc;
}

// UTC seconds of the log's first time stamp, counted back from its first dated $GPRMC along the
// replay time line; 0 for a log without a date.
int64_t logStartUtc(QByteArrayView log, bool bAcceptAllTalkers) {
    FixedDeviceClock elapsed;
    ReplayTimeline timeline(elapsed);
    int64_t tStart = 0;
    forEachLogSentence(log, bAcceptAllTalkers, [&](const char* line, int length) {
        timeline.follow(line, length);
        const std::optional<int64_t> tUtc = rmcUtc(std::string_view(line, static_cast<size_t>(length)));
        if (tUtc) tStart = *tUtc - elapsed.utcNow();
        return !tUtc;
    });
    return tStart;
}

} // namespace

void replayFix(QByteArrayView log, bool bAcceptAllTalkers, std::optional<int64_t> atSeconds, GpsFix& fix,
               SatelliteObserver* pSatellites) {
    const int64_t tStart = logStartUtc(log, bAcceptAllTalkers);
    FixedDeviceClock clock(tStart); // on the log's own dates, on UTC
    ReplayTimeline timeline(clock);
    NmeaInterpreter interpreter(clock);
    if (pSatellites) interpreter.setSatelliteObserver(pSatellites);
    forEachLogSentence(log, bAcceptAllTalkers, [&](const char* line, int length) {
        timeline.follow(line, length);
        if (atSeconds && clock.utcNow() - tStart > *atSeconds) return false;
        interpreter.interpret(std::string_view(line, static_cast<size_t>(length)), fix);
        return true;
    });
}
