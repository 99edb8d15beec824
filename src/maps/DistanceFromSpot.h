#pragma once

// GeoDistance from one fixed position to many others, giving its results to the bit: the same
// spherical law of cosines in the same order of operations, but with the trigonometry of the fixed
// end computed once and that of each other end's latitude kept by the caller between calls. The map
// choice scores every map of the catalogue at each redraw, where GeoDistance's five sines and cosines
// a map would take most of the time.
class CDistanceFromSpot {
public:
    CDistanceFromSpot(double lon, double lat);

    // The sine and cosine of the co-latitude of `lat` (degrees), to be kept with that latitude.
    static void Colatitude(double lat, double& sinColat, double& cosColat);

    // Kilometres from the spot to (lon, lat), whose co-latitude's sine and cosine are given.
    double Km(double lon, double lat, double sinColat, double cosColat) const;

private:
    double m_dLong, m_dLat, m_dSinColat, m_dCosColat;
};
