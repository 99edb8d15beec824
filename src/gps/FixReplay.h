#pragma once

#include <QByteArrayView>
#include <cstdint>
#include <optional>

struct GpsFix;
class SatelliteObserver;

// Interprets the sentences of a recorded log into `fix`, as the live document would have: the
// whole log, or up to `atSeconds` after its first time stamp ($GPGGA/$GPRMC, the replay time
// line), the sentences of that second included. With bAcceptAllTalkers the other talkers count,
// as the live sources take them. The satellite sentences also go to `pSatellites` when given.
// The fix times fall on the log's own dates (from its first dated $GPRMC; 1970 without one), on UTC.
void replayFix(QByteArrayView log, bool bAcceptAllTalkers, std::optional<int64_t> atSeconds, GpsFix& fix,
               SatelliteObserver* pSatellites = nullptr);
