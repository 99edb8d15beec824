#pragma once

#include <QByteArray>
#include <cstdint>

// Builds one NMEA sentence field by field, the way a receiver writes it: numbers with a decimal
// point whatever the process locale, then "*", the checksum in two hex digits and "\r\n".
class NmeaLineBuilder {
public:
    enum class HexCase { Upper, Lower };

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

    QByteArray finish(HexCase checksumCase = HexCase::Upper) const;

    // printf's "%0<width>.<decimals>f", with a decimal point whatever the process locale.
    static QByteArray fixedText(double value, int decimals, int width = 0);

private:
    NmeaLineBuilder& coordinate(double degrees, int degreeDigits, char positive, char negative);

    QByteArray m_line;
};
