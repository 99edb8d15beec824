#pragma once

// Geodetic <-> conformal latitude on an ellipsoid, in terms of tangents (tau = tan(latitude)) so that
// the conversion stays exact up to the poles. Both conformal projections (Transverse Mercator and polar
// stereographic) start from here.
class ConformalLatitude {
public:
    // `eccentricity` of the ellipsoid, e = sqrt(f * (2 - f)).
    explicit ConformalLatitude(double eccentricity);

    // tan(conformal latitude) for tau = tan(geodetic latitude).
    double tauPrime(double tau) const;
    // The inverse of tauPrime, by Newton's method (converges in two or three steps on the earth).
    double tau(double tauPrime) const;

    double eccentricity() const { return m_dEcc; }

private:
    double m_dEcc;
    double m_dEcc2m; // 1 - e^2
};
