#pragma once

#include <QByteArrayView>
#include <cstdint>
#include <optional>

class SatelliteTable;

// Fills `table` from the satellite sentences of a recorded log, as the live document would have
// shown them: the whole log, or up to `atSeconds` after its first time stamp ($GPGGA/$GPRMC, the
// replay time line), the sentences of that second included. With bAcceptAllTalkers the other
// talkers count, as the live sources take them.
void replaySky(QByteArrayView log, bool bAcceptAllTalkers, std::optional<int64_t> atSeconds,
               SatelliteTable& table);
