#include "nav/goto/VantrelText.h"

#include <QString>
#include <cmath>

QByteArray VantrelSimulationText(double lon, double lat, bool bSimulate) {
    QByteArray text = "@Vantrel:Simulate=";
    if (!bSimulate) return text;
    const double absLat = std::fabs(lat), absLon = std::fabs(lon);
    const int latDeg = static_cast<int>(absLat), lonDeg = static_cast<int>(absLon);
    text += QString::asprintf("%02d%08.5f,%c,%03d%08.5f,%c", latDeg, (absLat - latDeg) * 60.0,
                              lat > 0 ? 'N' : 'S', lonDeg, (absLon - lonDeg) * 60.0, lon > 0 ? 'E' : 'W')
                .toLatin1();
    return text;
}
