#pragma once

#include "nav/GeoPosition.h"
#include "settings/ValueText.h"

#include <QImage>
#include <QPointF>
#include <QSize>
#include <QString>
#include <vector>

struct DemoWorld;

// One of the demo's raster maps: a sheet of paper north up, scanned a little turned. A pixel's
// position follows from the sheet's centre, scale and turn; the calibration points pair some pixels
// with their positions, as a user would have measured them.
struct DemoSheet {
    const char* m_pszFile;
    const char* m_pszTitle;
    GeoPosition m_centre;
    double m_dMetresPerPixel;
    double m_dTurnDeg; // the paper's north, degrees anticlockwise from the image's top
    QSize m_size;
    std::vector<Point> m_calibrationPixels;
    bool m_bDetailed; // a town map: streets and their names
};

// The detailed town map of Leutkirch (2.5 m a pixel, three points, turned 4 degrees) and the overview
// of the whole drive (12 m a pixel, four points). The drive leaves the town map after about 4 km.
std::vector<DemoSheet> demoSheets();

GeoPosition sheetPixelToGeo(const DemoSheet& sheet, double x, double y);
// Where a position lies on the paper before it was turned (pixels from the paper's top left).
QPointF paperPoint(const DemoSheet& sheet, const GeoPosition& position);

QImage drawDemoSheet(const DemoSheet& sheet, const DemoWorld& world);
// Writes each sheet's image and its ".kal" into `folder`; false with the file that failed.
bool writeDemoMaps(const QString& folder, QString& failedFile);
