#include "gps/SyntheticGga.h"

#include "gps/NmeaLineBuilder.h"

#include <cmath>

namespace {

// Whole degrees, then the rest as minutes with five decimals ("%02d%08.5f"), as the handheld wrote
// them: the minutes are rounded on their own, so 59.999996' shows as "60.00000".
QByteArray degreesAndMinutes(double degrees, int degreeDigits) {
    const double magnitude = std::fabs(degrees);
    const double whole = std::floor(magnitude);
    return QByteArray::number(static_cast<qlonglong>(whole)).rightJustified(degreeDigits, '0') +
           NmeaLineBuilder::fixedText((magnitude - whole) * 60.0, 5, 8);
}

} // namespace

QByteArray buildSyntheticGga(const GpsFix& fix, int32_t localOffset) {
    NmeaLineBuilder line("$GPGGA");
    line.utcTime(fix.m_tFixTime - localOffset)
        .text(degreesAndMinutes(fix.m_dPosLat, 2))
        .text(fix.m_dPosLat > 0 ? "N" : "S")
        .text(degreesAndMinutes(fix.m_dPosLong, 3))
        .text(fix.m_dPosLong > 0 ? "E" : "W")
        .integer(fix.m_nValid)
        .integer(fix.m_nSatellites)
        .text(fix.hasFix() ? "1.2" : "50.0")
        .text("0.0")
        .text("M")
        .empty(3)
        .text("0000");
    return line.finish(NmeaLineBuilder::HexCase::Lower);
}
