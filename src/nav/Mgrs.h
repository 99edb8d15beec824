#pragma once

#include <QByteArray>
#include <cstdint>

// Military Grid Reference System references on WGS 84: UTM between 80 deg S and 84 deg N, Universal
// Polar Stereographic with the polar lettering (bands A, B, Y, Z; the zone field is two blanks) beyond.
namespace MgrsError {
enum : int {
    Latitude = 1,  // latitude outside -pi/2..pi/2
    Longitude = 2, // longitude outside -pi..2pi
    Precision = 8  // precision outside 0..5
};
}

// `lat`, `lon` in radians; `precision` 0..5 digits per coordinate (5 = one metre). Writes the
// reference, e.g. "32UPU1234567890" (precision 5: always 15 characters), into `mgrs` and returns the
// error bits; on an error `mgrs` is left unchanged. Easting and northing are rounded half to even to
// the precision before the letters are chosen.
int GeodeticToMgrs(double lat, double lon, int32_t precision, QByteArray& mgrs);

// `value` in metres rounded to a multiple of 10^(5 - precision) metres, exactly half way to the even
// multiple.
double mgrsRoundToPrecision(double value, int32_t precision);

// The inverse for typed targets, UTM references only ("32UPU1234567890", 0..5 digit pairs, no
// blanks): `lat`, `lon` in radians of the south-west corner of the referenced square. False for a
// polar (UPS) reference or any text that is not a reference.
bool MgrsToGeodetic(const QByteArray& mgrs, double& lat, double& lon);
