#pragma once

#include "gps/GpsFix.h"
#include "gps/NmeaTime.h"

#include <cstdint>
#include <string_view>

class DeviceClock;
class NmeaFields;
class SatelliteObserver;

// Turns one received sentence into changes of a GpsFix (the talker must be "GP": $GPGGA, $GPRMC,
// $GPGLL, $GPVTG). GSA and GSV of every talker go to the satellite observer; only $GPGSA changes
// the fix. Allocates nothing.
class NmeaInterpreter {
public:
    // The clock gives the date of the fix times and is set once from the first serial fix.
    explicit NmeaInterpreter(DeviceClock& clock);

    // Receives GSA and GSV sentences; none by default. Not owned.
    void setSatelliteObserver(SatelliteObserver* observer) { m_pSatellites = observer; }

    // Interprets `line` (from its "$"; a trailing "\r\n" is fine) into `fix` and returns the
    // GpsChange code. Does not touch fix.m_nPendingChanges: the caller ORs the code in.
    uint16_t interpret(std::string_view line, GpsFix& fix);

private:
    uint16_t interpretGga(const NmeaFields& fields, GpsFix& fix);
    uint16_t interpretGll(const NmeaFields& fields, GpsFix& fix);
    uint16_t interpretGsa(const NmeaFields& fields, GpsFix& fix);
    uint16_t interpretGsv(const NmeaFields& fields, GpsFix& fix);
    uint16_t interpretRmc(const NmeaFields& fields, GpsFix& fix);
    uint16_t interpretVtg(const NmeaFields& fields, GpsFix& fix);
    void setClockOnce(GpsFix& fix);

    DeviceClock& m_clock;
    NmeaTime m_time;
    SatelliteObserver* m_pSatellites = nullptr;
};
