// Any bytes as a .kal file, loaded for a picture of known size and of unknown size (an older layout
// that verifies is rewritten into a scratch folder), then fitted, converted and assessed.
#include "maps/CalibrationQuality.h"
#include "maps/MapCalibration.h"
#include "settings/CIniFile.h"

#include <QTemporaryDir>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static QTemporaryDir scratch;
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    for (const Size known : {Size{1000, 800}, Size{0, 0}}) {
        CIniFile ini;
        ini.LoadFromBytes(bytes);
        MapCalibration map;
        map.SetMapSize(known);
        map.LoadCalibrationFrom(ini, scratch.filePath("fuzz.kal"));
        if (map.PointCount() < 0 || map.PointCount() > MapCalibration::kMaxPoints) __builtin_trap();
        const CalibrationQuality quality = AssessCalibration(map);
        if (quality.residuals.size() != size_t(map.PointCount())) __builtin_trap();
        double lon, lat;
        map.GetCentre(lon, lat);
        map.Contains(lon, lat);
        map.GeoToPixel(lon, lat);
        map.PixelToGeo(map.MapSize().cx, map.MapSize().cy, lon, lat);
        map.DeletePoint(0);
        map.AutoCalibrate(map.MinLong(), map.MaxLong(), map.MinLat(), map.MaxLat(), 1.5);
    }
    return 0;
}
