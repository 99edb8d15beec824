#include "nav/Mgrs.h"

#include "nav/Utm.h"

#include <cmath>
#include <cstring>

namespace {

constexpr const char* kBandLetters = "CDEFGHJKLMNPQRSTUVWX";
constexpr const char* kColumnLetters = "ABCDEFGHJKLMNPQRSTUVWXYZ"; // I and O left out
constexpr const char* kRowLetters = "ABCDEFGHJKLMNPQRSTUV";
constexpr double kDegree = 0.017453292519943295;
constexpr double kRowCycle = 2000000.0;

int indexIn(const char* letters, char c) {
    const char* at = c != 0 ? std::strchr(letters, c) : nullptr;
    return at ? static_cast<int>(at - letters) : -1;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The lowest northing of a band at the zone's central meridian, for choosing the row cycle.
bool bandMinNorthing(int32_t zone, int band, double& northing) {
    const double lat = (-80.0 + 8.0 * band) * kDegree;
    const double lon = (zone * 6 - 183) * kDegree;
    int32_t z = zone;
    char hemisphere = 'N';
    double easting = 0;
    if (GeodeticToUtm(lat, lon, z, hemisphere, easting, northing, zone) &
        ~(UtmError::Easting | UtmError::Northing))
        return false;
    return true;
}

} // namespace

bool MgrsToGeodetic(const QByteArray& mgrs, double& lat, double& lon) {
    qsizetype i = 0;
    int32_t zone = 0;
    while (i < mgrs.size() && i < 2 && isDigit(mgrs[i]))
        zone = zone * 10 + (mgrs[i++] - '0');
    if (i == 0 || zone < 1 || zone > 60 || mgrs.size() < i + 3) return false;
    const int band = indexIn(kBandLetters, static_cast<char>(std::toupper(mgrs[i])));
    const int column = indexIn(kColumnLetters, static_cast<char>(std::toupper(mgrs[i + 1])));
    const int row = indexIn(kRowLetters, static_cast<char>(std::toupper(mgrs[i + 2])));
    const QByteArray digits = mgrs.mid(i + 3);
    if (band < 0 || column < 0 || row < 0 || digits.size() % 2 != 0 || digits.size() > 10) return false;
    for (char c : digits)
        if (!isDigit(c)) return false;

    const int set = (zone - 1) % 3; // columns A-H, J-R, S-Z
    const int columnInSet = column - set * 8;
    if (columnInSet < 0 || columnInSet > 7) return false;
    const int precision = static_cast<int>(digits.size() / 2);
    const double scale = std::pow(10.0, 5 - precision);
    double easting = (columnInSet + 1) * 100000.0;
    double northing = std::fmod(row * 100000.0 + (zone % 2 == 0 ? 1500000.0 : 0.0), kRowCycle);
    if (precision > 0) {
        easting += digits.left(precision).toDouble() * scale;
        northing += digits.mid(precision).toDouble() * scale;
    }
    double minNorthing = 0;
    if (!bandMinNorthing(zone, band, minNorthing)) return false;
    const bool south = band < 10; // bands C..M
    // The square lies up to 100 km below the band's edge, where the band starts inside it.
    while (northing < minNorthing - 100000.0)
        northing += kRowCycle;
    const int error = UtmToGeodetic(zone, south ? 'S' : 'N', easting, northing, lat, lon);
    return (error & ~(UtmError::Easting | UtmError::Northing)) == 0;
}
