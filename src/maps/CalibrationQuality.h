#pragma once

#include "settings/ValueText.h"

#include <QStringList>
#include <vector>

class MapCalibration;

// How far a pixel/position pair is off a calibration: the position converted to a pixel without
// rounding, minus the pixel (in pixels), and the ground distance from the pixel's position to the
// position (in metres).
struct PointResidual {
    double dDxPixels = 0.0;
    double dDyPixels = 0.0;
    double dMetres = 0.0;
};

PointResidual ResidualOf(const MapCalibration& map, Point pixel, double lon, double lat);

// The back-conversion error of each of the map's points, and a warning for each degenerate part of
// the point set (two points on one meridian, parallel, pixel column or row; three on one line; a fit
// that fails its back-conversion test).
struct CalibrationQuality {
    std::vector<PointResidual> residuals;
    QStringList warnings;
};

CalibrationQuality AssessCalibration(const MapCalibration& map);
