// Any bytes as a typed coordinate: parsing, then writing the value back in every notation and
// converting it to the grids, must hold for whatever number the text gives (also inf and nan).
#include "nav/CoordinateText.h"
#include "nav/GeoConstants.h"
#include "nav/Mgrs.h"
#include "nav/Utm.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    double value = 0.0;
    ParseCoordinate(text, value);
    for (int8_t format = 0; format <= 5; ++format) {
        (void)FormatCoordinate(value, static_cast<PosFormat>(format), true);
        (void)FormatCoordinate(value, static_cast<PosFormat>(format), false);
    }
    int32_t zone = 0;
    char hemisphere = 0;
    double easting = 0.0, northing = 0.0;
    GeodeticToUtm(value * DegToRad, value * DegToRad, zone, hemisphere, easting, northing);
    QByteArray mgrs;
    GeodeticToMgrs(value * DegToRad, value * 2 * DegToRad, 5, mgrs);
    return 0;
}
