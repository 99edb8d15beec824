#include "gps/NmeaInterpreter.h"

#include "gps/NmeaSentence.h"
#include "gps/SatelliteObserver.h"
#include "platform/DeviceClock.h"

#include <limits>

namespace {

// Knots to km/h. Deliberately not 1.852, and in single precision: speeds must read as they always did.
constexpr float kKnotsToKmh = 1.851998f;

// Integer part of a double, saturated to 32 bits instead of undefined for huge fields.
int32_t truncateToInt(double value) {
    if (!(value > std::numeric_limits<int32_t>::min()))
        return value != value ? 0 : std::numeric_limits<int32_t>::min();
    if (value >= std::numeric_limits<int32_t>::max()) return std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(value);
}

bool startsWithA(std::string_view field) {
    return !field.empty() && field.front() == 'A';
}

struct SentenceHandler {
    const char* pszName; // the first six characters of field 0
    int nMinFields;      // shorter sentences are understood but change nothing
    uint16_t (NmeaInterpreter::*handle)(const NmeaFields&, GpsFix&);
};

} // namespace

NmeaInterpreter::NmeaInterpreter(DeviceClock& clock) : m_clock(clock), m_time(clock) {}

uint16_t NmeaInterpreter::interpret(std::string_view line, GpsFix& fix) {
    static constexpr SentenceHandler kHandlers[] = {
        {"$GPGGA", 10, &NmeaInterpreter::interpretGga}, {"$GPRMC", 10, &NmeaInterpreter::interpretRmc},
        {"$GPGSA", 1, &NmeaInterpreter::interpretGsa},  {"$GPGSV", 1, &NmeaInterpreter::interpretGsv},
        {"$GPVTG", 8, &NmeaInterpreter::interpretVtg},  {"$GPGLL", 8, &NmeaInterpreter::interpretGll},
    };
    NmeaFields fields;
    if (!splitNmeaLine(line, fields)) return GpsChange::kRejected;
    for (const SentenceHandler& handler : kHandlers) {
        if (!fields.isNamed(handler.pszName)) continue;
        if (fields.count() < handler.nMinFields) return GpsChange::kUnderstood;
        return (this->*handler.handle)(fields, fix);
    }
    // Other talkers' satellite sentences change nothing here; the observer decides whether it
    // shows them ("AcceptAllTalkers"). Proprietary sentences ("$P...") are none of them.
    const std::string_view name = fields.field(0);
    if (m_pSatellites && name.size() == 6 && name[1] != 'P') {
        if (name.substr(3) == "GSV") m_pSatellites->onGsv(fields);
        if (name.substr(3) == "GSA") m_pSatellites->onGsa(fields);
    }
    return GpsChange::kUnderstood;
}

// $GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47
//  0     1      2        3 4         5 6 7  8   9     10 11  12
uint16_t NmeaInterpreter::interpretGga(const NmeaFields& fields, GpsFix& fix) {
    const char* end = fields.lineEnd();
    const bool bTime = m_time.parse(fields.fieldStart(1), end, fix.m_tFixTime);
    const bool bLat = parseNmeaLatitude(fields.fieldStart(2), end, fix.m_dPosLat);
    const bool bLong = parseNmeaLongitude(fields.fieldStart(4), end, fix.m_dPosLong);
    // Quality, satellites, HDOP and altitude are kept even when time or position is unreadable.
    fix.m_nValid = static_cast<uint8_t>(nmeaInt(fields.field(6)));
    fix.m_nSatellites = static_cast<uint8_t>(nmeaInt(fields.field(7)));
    fix.m_fHdop = static_cast<float>(nmeaDouble(fields.field(8)));
    if (fix.m_bAutoAltitudeOffset) fix.m_nAltitudeOffset = -truncateToInt(nmeaDouble(fields.field(11)) + 0.5);
    fix.m_fAltitude = static_cast<float>(fix.m_nAltitudeOffset + nmeaDouble(fields.field(9)));
    if (!bTime || !bLat || !bLong) return GpsChange::kEpoch;
    if (fix.m_bSetSystemTime && fix.hasFix() && fix.m_nSatellites != 0 && fix.fromSerialPort())
        setClockOnce(fix);
    return GpsChange::kGga;
}

// $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
//  0     1      2 3        4 5         6 7     8     9      10    11
uint16_t NmeaInterpreter::interpretRmc(const NmeaFields& fields, GpsFix& fix) {
    const char* end = fields.lineEnd();
    const bool bTime = m_time.parse(fields.fieldStart(1), end, fix.m_tFixTime);
    fix.m_nValid = startsWithA(fields.field(2)) ? 1 : 0;
    const bool bLat = parseNmeaLatitude(fields.fieldStart(3), end, fix.m_dPosLat);
    const bool bLong = parseNmeaLongitude(fields.fieldStart(5), end, fix.m_dPosLong);
    fix.m_fSpeed = static_cast<float>(nmeaDouble(fields.field(7)) * kKnotsToKmh);
    // Below the threshold the receiver's course is noise; the last one stays.
    if (fix.m_fSpeed > fix.m_fThresholdHeading)
        fix.m_fCourse = static_cast<float>(nmeaDouble(fields.field(8)));
    if (!bTime || !bLat || !bLong) return GpsChange::kEpoch;
    if (fix.m_bSetSystemTime && fix.hasFix() && fix.fromSerialPort()) setClockOnce(fix);
    return GpsChange::kRmc;
}

// $GPGLL,4916.45,N,12311.12,W,225444,A,*1D
//  0     1       2 3        4 5      6 7
uint16_t NmeaInterpreter::interpretGll(const NmeaFields& fields, GpsFix& fix) {
    const char* end = fields.lineEnd();
    double dLat = 0, dLong = 0;
    int64_t tTime = 0;
    if (!parseNmeaLatitude(fields.fieldStart(1), end, dLat) ||
        !parseNmeaLongitude(fields.fieldStart(3), end, dLong) ||
        !m_time.parse(fields.fieldStart(5), end, tTime))
        return GpsChange::kRejected;
    fix.m_dPosLat = dLat;
    fix.m_dPosLong = dLong;
    fix.m_tFixTime = tTime;
    fix.m_nValid = startsWithA(fields.field(6)) ? 1 : 0;
    return GpsChange::kGll;
}

// $GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39
//  0     1 2 3..14 PRNs             15  16  17
uint16_t NmeaInterpreter::interpretGsa(const NmeaFields& fields, GpsFix& fix) {
    if (m_pSatellites) m_pSatellites->onGsa(fields);
    if (fields.count() >= 17) {
        // Eleven PRN fields are counted, field 14 never: satellite counts must stay comparable.
        fix.m_nSatellites = 0;
        for (int index = 3; index <= 13 && !fields.field(index).empty(); ++index)
            if (nmeaInt(fields.field(index)) != 0) ++fix.m_nSatellites;
        fix.m_fHdop = static_cast<float>(nmeaDouble(fields.field(16)));
    }
    return GpsChange::kUnderstood;
}

uint16_t NmeaInterpreter::interpretGsv(const NmeaFields& fields, GpsFix&) {
    if (m_pSatellites) m_pSatellites->onGsv(fields);
    return GpsChange::kUnderstood;
}

// $GPVTG,054.7,T,034.4,M,005.5,N,010.2,K*48
//  0     1     2 3     4 5     6 7     8
uint16_t NmeaInterpreter::interpretVtg(const NmeaFields& fields, GpsFix& fix) {
    fix.m_fSpeed = static_cast<float>(nmeaDouble(fields.field(7)));
    if (fix.m_fSpeed > fix.m_fThresholdHeading)
        fix.m_fCourse = static_cast<float>(nmeaDouble(fields.field(1)));
    return GpsChange::kVtg;
}

// Once per run, even when the clock refuses: the flag falls before the attempt.
void NmeaInterpreter::setClockOnce(GpsFix& fix) {
    fix.m_bSetSystemTime = false;
    m_clock.setSystemTime(fix.m_tFixTime - m_clock.localOffset());
}
