#pragma once

#include "ToolContext.h"
#include "maps/CalibrationQuality.h"
#include "settings/ValueText.h"

#include <QList>
#include <optional>

class MapCalibration;

// What the kal and map commands share: their option forms and the calibration as JSON.
struct ToolCalibrationPoint {
    Point pixel;
    double lon = 0.0, lat = 0.0;
};

std::optional<Size> parseSizeOption(const QString& text);                  // "W,H", both positive
std::optional<ToolCalibrationPoint> parsePointOption(const QString& text); // "X,Y,LON,LAT"

// {"ok", "count", "geo_to_pixel", "pixel_to_geo", "min_lon", "min_lat", "max_lon", "max_lat",
// "m_per_px", "residuals"}; each warning of the quality goes to stderr as "tarvik-tool: warning: ...".
void printCalibration(ToolContext& ctx, const MapCalibration& map, const CalibrationQuality& quality);

// Loads a .kal as the program does for its image: the image beside it (same name, ending in jpg, png,
// gif or bmp) gives the map file name and, without `size`, the size an older layout needs.
bool loadCalibrationBeside(const QString& kalPath, std::optional<Size> size, MapCalibration& map);
