#pragma once

#include "maps/CalibrationQuality.h"
#include "maps/MapCalibration.h"
#include "maps/OziMapFile.h"

#include <QString>
#include <vector>

// Calibrations made by other programs, turned into Tarvik's own: the fit over their points, the
// residual of every point and the warnings of the fit. Where the file's own projection is known, the
// residuals go on with the fit's distance from it at check pixels: for a world file, whose points
// are the four corners, at the centre and the edge midpoints (top, right, bottom, left); for an
// OziExplorer map of UTM grid points (fitted affinely in metres, as OziExplorer does), at the four
// corners and then those five.
struct MapImport {
    MapCalibration calibration;
    CalibrationQuality quality;
};

// Fits two to four points exactly; of more, the four that span the largest area in pixels (among
// equal areas the first found), the next largest when a set does not verify. As the elimination has
// no pivot search, each set is tried in every rotation of its order. False when nothing verifies.
bool FitImportPoints(const std::vector<ImportPoint>& points, MapCalibration& map, QString& error);

// An OziExplorer .map: the image is `image`, else the one the file names, in the file's folder. Its
// size is the file's "IWH", else the image's own.
bool ImportOziMap(const QString& mapPath, const QString& image, MapImport& result, QString& error);

// A world file for the image `image`, else the image of the same name beside it; `utmZone` ("32N")
// says its metres are UTM, else degrees or Web Mercator metres are told apart by their values.
bool ImportWorldFile(const QString& worldPath, const QString& image, const QString& utmZone,
                     MapImport& result, QString& error);
