#pragma once

#include <QByteArray>
#include <cstdint>

// Builds one NMEA sentence field by field, the way a receiver writes it: numbers with a decimal
// point whatever the process locale, and "*" with the checksum in upper-case hex and "\r\n".
class NmeaLineBuilder {
public:
    explicit NmeaLineBuilder(const char* name); // "$GPGGA"

    NmeaLineBuilder& text(const QByteArray& field);
    NmeaLineBuilder& empty(int count = 1);
    // `decimals` after the point, zero-padded in front to `width` characters.
    NmeaLineBuilder& fixed(double value, int decimals, int width = 0);
    NmeaLineBuilder& integer(int64_t value, int width = 0);
    // "hhmmss.00" and "ddmmyy" of a UTC time (seconds since 1970).
    NmeaLineBuilder& utcTime(int64_t utc);
    NmeaLineBuilder& utcDate(int64_t utc);
    // "ddmm.mmmm,N" and "dddmm.mmmm,E" (two fields each) of decimal degrees.
    NmeaLineBuilder& latitude(double degrees);
    NmeaLineBuilder& longitude(double degrees);

    QByteArray finish() const;

private:
    NmeaLineBuilder& coordinate(double degrees, int degreeDigits, char positive, char negative);

    QByteArray m_line;
};
