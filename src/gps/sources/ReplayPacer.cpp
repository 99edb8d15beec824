#include "gps/sources/ReplayPacer.h"

#include "gps/NmeaTime.h"

#include <cstring>
#include <string_view>

// A speed of 0 or less would divide by zero or pause forever; it replays at recorded speed.
ReplayPacer::ReplayPacer(int simulationSpeed, bool anyTalker)
    : m_nPauseMs(1000 / (simulationSpeed > 0 ? simulationSpeed : 1)), m_bAnyTalker(anyTalker) {}

int ReplayPacer::pauseAfter(const char* line, int length) {
    if (length < 7 || line[0] != '$') return 0;
    if (!m_bAnyTalker && std::strncmp(line + 1, "GP", 2) != 0) return 0;
    if (std::strncmp(line + 3, "GGA", 3) != 0 && std::strncmp(line + 3, "RMC", 3) != 0) return 0;
    // The time field from the eighth character on, read as a whole number hhmmss.
    const int time = nmeaInt(std::string_view(line + 7, static_cast<size_t>(length - 7)));
    if (time == m_nLastTime) return 0;
    m_nLastTime = time;
    return m_nPauseMs;
}
