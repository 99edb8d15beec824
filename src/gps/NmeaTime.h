#pragma once

#include <cstdint>
#include <string_view>

class DeviceClock;

// Builds fix times from the hhmmss(.sss) field of a sentence. The sentence carries UTC and no
// date; the date comes from the device clock, shifted two hours back for hours above 10 and two
// hours forward for hours below 2, so that a fix stamped just before midnight read just after it
// keeps its day (and the other way round).
class NmeaTime {
public:
    explicit NmeaTime(const DeviceClock& clock) : m_clock(clock) {}

    // The fix time in local seconds since 1970; nothing stored when the field has no three
    // two-digit numbers or they are no time of day.
    bool parse(const char* field, const char* lineEnd, int64_t& localTime) const;

private:
    const DeviceClock& m_clock;
};

// Degrees from "ddmm.mmmm,N" (latitude) and "dddmm.mmmm,E" (longitude): the field and the
// hemisphere field behind it. South and west are negative; any other letter counts as north or
// east. Nothing stored when degrees, minutes, minute fraction or hemisphere are missing.
bool parseNmeaLatitude(const char* field, const char* lineEnd, double& degrees);
bool parseNmeaLongitude(const char* field, const char* lineEnd, double& degrees);

// Plain decimal conversion of a field, as atoi / atof read it: leading blanks, a sign, digits;
// anything unreadable, and so an empty field, gives 0.
int32_t nmeaInt(std::string_view field);
double nmeaDouble(std::string_view field);
