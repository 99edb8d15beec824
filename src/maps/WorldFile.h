#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

class MapCalibration;

// An ESRI world file (.jgw .pgw .gfw .bpw .tfw .wld): six numbers A, D, B, E, C, F, one a line. The
// world position of pixel column c and row r (both counted from 0, at the pixel's centre) is
// X = A c + B r + C, Y = D c + E r + F.
struct WorldFile {
    double A = 0.0, D = 0.0, B = 0.0, E = 0.0, C = 0.0, F = 0.0;

    // X and Y of the picture coordinate (x, y) measured from its top-left corner, as pixels are here.
    void WorldOf(double x, double y, double& worldX, double& worldY) const;
};

// False, with a one-line reason, unless the bytes hold six finite numbers and a solvable transform.
bool ReadWorldFile(const QByteArray& bytes, WorldFile& world, QString& error);

// What the world coordinates are: longitude and latitude in degrees, Web Mercator metres (EPSG:3857),
// or UTM metres in a zone the user names.
struct WorldUnits {
    enum Kind { Degrees, WebMercator, Utm } kind = Degrees;
    int nZone = 0; // UTM only, 1..60
    char cHemisphere = 'N';
};

// Degrees when both origin values are plausible degrees with a pixel smaller than a degree, else
// Web Mercator when they lie within its square; nothing otherwise (the user has to name a UTM zone).
std::optional<WorldUnits> GuessWorldUnits(const WorldFile& world);
// "32", "32N" or "33S"; nothing for another text.
std::optional<WorldUnits> UtmUnits(const QString& zone);

// The position in decimal degrees on WGS 84 of picture coordinate (x, y); false when it has none.
bool WorldToGeo(const WorldFile& world, const WorldUnits& units, double x, double y, double& lon,
                double& lat);

// The world file (degrees) of a calibration of two or three points, which are affine; nothing for
// another count. Numbers are written so that they read back to the same value.
std::optional<QByteArray> WriteWorldFile(const MapCalibration& map);
