#include "nav/Mgrs.h"

#include "nav/PolarStereographic.h"
#include "nav/Utm.h"
#include "nav/Wgs84.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kMinLon = -3.141592653589793;
constexpr double kMaxLon = 6.283185307179586;
constexpr double kUtmMinLat = -1.3962634015954636;   // -80 deg
constexpr double kUtmMaxLat = 1.4660765716752369;    // 84 deg
constexpr double kBandXMinLat = 1.2566370614359172;  // 72 deg
constexpr double kBandsPerRadian = 7.16197243913529; // one band is 8 deg
constexpr double kUpsFalseOrigin = 2000000.0;
constexpr const char* kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr const char* kBandLetters = "CDEFGHJKLMNPQRSTUVWX";

// Unreachable for latitudes in range; clamped so that a table is never overrun.
char letterAt(const char* letters, int index) {
    const int last = static_cast<int>(std::strlen(letters)) - 1;
    return letters[std::clamp(index, 0, last)];
}

// Bands C..W of 8 degrees each from 80 deg S; X is 12 degrees, from 72 deg N on.
char bandLetter(double lat) {
    if (lat >= kBandXMinLat) return 'X';
    const double index = (lat - kUtmMinLat) * kBandsPerRadian + 1e-12;
    return letterAt(kBandLetters, static_cast<int>(index));
}

// The digits of one coordinate: the metres within the 100 km square, cut to `precision` digits.
void appendDigits(QByteArray& text, double value, int32_t precision) {
    double metres = std::fmod(value, 100000.0);
    if (metres >= 99999.5) metres = 99999.0;
    const long digits = static_cast<long>(metres / std::pow(10.0, 5 - precision));
    char buffer[24];
    std::snprintf(buffer, sizeof buffer, "%*.*ld", precision, precision, digits);
    text += buffer;
}

struct Letters {
    char band = 0, column = 0, row = 0;
};

// The 100 km square letters in a UTM zone. Lowers `easting`/`northing` by one metre at the two places
// where the lettering would otherwise step into the neighbouring square.
Letters utmSquare(int32_t zone, char band, double& easting, double& northing) {
    int set = zone % 6;
    if (set == 0) set = 6;
    const int firstColumn = (set == 1 || set == 4) ? 0 : (set == 2 || set == 5) ? 9 : 18; // A, J, S
    const double rowPatternOffset = set % 2 == 0 ? 1500000.0 : 0.0;

    if (northing == 10000000.0) northing -= 1.0;
    double rowNorthing = northing;
    while (rowNorthing >= 2000000.0)
        rowNorthing -= 2000000.0;
    rowNorthing -= rowPatternOffset;
    if (rowNorthing < 0.0) rowNorthing += 2000000.0;
    int row = static_cast<int>(rowNorthing * 1e-5);
    if (row > 7) ++row;  // I
    if (row > 13) ++row; // O

    if (zone == 31 && band == 'V' && easting == 500000.0) easting -= 1.0;
    int column = firstColumn + static_cast<int>(easting / 100000.0) - 1;
    if (firstColumn == 9 && column > 13) ++column; // O
    return {band, letterAt(kAlphabet, column), letterAt(kAlphabet, row)};
}

// The polar lettering: west of the 0/180 meridian band A (south) or Y (north), east of it B or Z;
// columns and rows count from the false origin's 100 km squares, leaving out I, O and (columns) D, E, M, N,
// V, W.
Letters upsSquare(bool north, double easting, double northing) {
    const bool west = easting < kUpsFalseOrigin;
    const int columnSquare = static_cast<int>(easting / 100000.0);
    const int rowSquare = static_cast<int>(northing / 100000.0);
    if (north) {
        return {west ? 'Y' : 'Z',
                west ? letterAt("RSTUXYZ", columnSquare - 13) : letterAt("ABCFGHJ", columnSquare - 20),
                letterAt("ABCDEFGHJKLMNP", rowSquare - 13)};
    }
    return {west ? 'A' : 'B',
            west ? letterAt("JKLPQRSTUXYZ", columnSquare - 8) : letterAt("ABCFGHJKLPQR", columnSquare - 20),
            letterAt("ABCDEFGHJKLMNPQRSTUVWXYZ", rowSquare - 8)};
}

const PolarStereographic& upsProjection() {
    static const PolarStereographic projection(Wgs84::kSemiMajorAxis, Wgs84::kFlattening, 0.994);
    return projection;
}

} // namespace

double mgrsRoundToPrecision(double value, int32_t precision) {
    const double divisor = std::pow(10.0, 5 - precision);
    const double quotient = value / divisor;
    double whole = std::floor(quotient);
    const double fraction = quotient - whole;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0.0)) whole += 1.0;
    return whole * divisor;
}

int GeodeticToMgrs(double lat, double lon, int32_t precision, QByteArray& mgrs) {
    int errors = 0;
    if (!(lat >= -kHalfPi && lat <= kHalfPi)) errors |= MgrsError::Latitude;
    if (!(lon >= kMinLon && lon <= kMaxLon)) errors |= MgrsError::Longitude;
    if (precision < 0 || precision > 5) errors |= MgrsError::Precision;
    if (errors) return errors;

    QByteArray text;
    double easting = 0.0;
    double northing = 0.0;
    Letters letters;
    if (lat >= kUtmMinLat && lat <= kUtmMaxLat) {
        int32_t zone = 0;
        char hemisphere = 'N';
        // Cannot fail here: latitude and longitude lie within its ranges; easting and northing do too.
        GeodeticToUtm(lat, lon, zone, hemisphere, easting, northing);
        easting = mgrsRoundToPrecision(easting, precision);
        northing = mgrsRoundToPrecision(northing, precision);
        letters = utmSquare(zone, bandLetter(lat), easting, northing);
        char buffer[12];
        std::snprintf(buffer, sizeof buffer, "%2.2ld", static_cast<long>(zone));
        text = buffer;
    } else {
        const bool north = lat > 0;
        double x = 0.0;
        double y = 0.0;
        upsProjection().forward(north, lat, lon, x, y);
        easting = mgrsRoundToPrecision(kUpsFalseOrigin + x, precision);
        northing = mgrsRoundToPrecision(kUpsFalseOrigin + y, precision);
        letters = upsSquare(north, easting, northing);
        text = "  ";
    }
    text += letters.band;
    text += letters.column;
    text += letters.row;
    appendDigits(text, easting, precision);
    appendDigits(text, northing, precision);
    mgrs = text;
    return 0;
}
