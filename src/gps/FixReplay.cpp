#include "gps/FixReplay.h"

#include "gps/LogSentences.h"
#include "gps/NmeaInterpreter.h"
#include "gps/ReplayTimeline.h"
#include "platform/DeviceClock.h"

void replayFix(QByteArrayView log, bool bAcceptAllTalkers, std::optional<int64_t> atSeconds, GpsFix& fix,
               SatelliteObserver* pSatellites) {
    FixedDeviceClock clock; // counts the seconds since the first time stamp
    ReplayTimeline timeline(clock);
    NmeaInterpreter interpreter(clock);
    if (pSatellites) interpreter.setSatelliteObserver(pSatellites);
    forEachLogSentence(log, bAcceptAllTalkers, [&](const char* line, int length) {
        timeline.follow(line, length);
        if (atSeconds && clock.utcNow() > *atSeconds) return false;
        interpreter.interpret(std::string_view(line, static_cast<size_t>(length)), fix);
        return true;
    });
}
