#include "gps/SkyReplay.h"

#include "gps/FixReplay.h"
#include "gps/GpsFix.h"
#include "gps/SatelliteTable.h"

void replaySky(QByteArrayView log, bool bAcceptAllTalkers, std::optional<int64_t> atSeconds,
               SatelliteTable& table) {
    table.setAcceptAllTalkers(bAcceptAllTalkers);
    GpsFix fix;
    replayFix(log, bAcceptAllTalkers, atSeconds, fix, &table);
}
