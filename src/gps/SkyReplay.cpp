#include "gps/SkyReplay.h"

#include "gps/LogSentences.h"
#include "gps/NmeaInterpreter.h"
#include "gps/ReplayTimeline.h"
#include "gps/SatelliteTable.h"
#include "platform/DeviceClock.h"

void replaySky(QByteArrayView log, bool bAcceptAllTalkers, std::optional<int64_t> atSeconds,
               SatelliteTable& table) {
    FixedDeviceClock clock; // counts the seconds since the first time stamp
    ReplayTimeline timeline(clock);
    NmeaInterpreter interpreter(clock);
    interpreter.setSatelliteObserver(&table);
    table.setAcceptAllTalkers(bAcceptAllTalkers);
    GpsFix fix;
    forEachLogSentence(log, bAcceptAllTalkers, [&](const char* line, int length) {
        timeline.follow(line, length);
        if (atSeconds && clock.utcNow() > *atSeconds) return false;
        interpreter.interpret(std::string_view(line, static_cast<size_t>(length)), fix);
        return true;
    });
}
