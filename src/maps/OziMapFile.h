#pragma once

#include "settings/ValueText.h"

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

class MapCalibration;

// A calibration point read from another program's file: a pixel and a position in decimal degrees
// on WGS 84.
struct ImportPoint {
    Point pixel;
    double lon = 0.0;
    double lat = 0.0;
};

// A point given on the UTM grid, in metres.
struct UtmGridValue {
    int nZone = 0;
    char cHemisphere = 'N';
    double dEasting = 0.0, dNorthing = 0.0;
};

// What an OziExplorer .map file says about its picture: the image's file name (without folder), its
// size from "IWH" (0 x 0 when missing), the usable calibration points "Point01".."Point30" (degrees
// and minutes with hemisphere, or UTM grid values), and the "MMPLL" corners with their "MMPXY" pixels.
struct OziMapData {
    QString strImageName;
    QString strDatum;
    Size size;
    std::vector<ImportPoint> points;
    std::vector<std::optional<UtmGridValue>> grid; // per point: its grid values when it came from the grid
    std::vector<ImportPoint> corners;
};

// False, with a one-line reason, for a file that is not an OziExplorer map or whose datum is not
// WGS 84 (positions are never shifted silently). Points with a missing, non-finite or out-of-range
// value are left out.
bool ReadOziMap(const QByteArray& bytes, OziMapData& map, QString& error);

// An OziExplorer .map (WGS 84, Latitude/Longitude) of a calibration: its points, the image corners as
// "MMPLL", the image size, CRLF line ends.
QByteArray WriteOziMap(const MapCalibration& map);
