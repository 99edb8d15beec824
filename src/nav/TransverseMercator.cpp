#include "nav/TransverseMercator.h"

#include <cmath>
#include <complex>
#include <initializer_list>
#include <numbers>

namespace {

using Complex = std::complex<double>;

// sum_j c[j] * sin(2 (j+1) z) for complex z, by Clenshaw's recurrence (one sin and one cos only).
Complex sineSeries(const std::array<double, 6>& c, Complex z) {
    const Complex twoCos = 2.0 * std::cos(2.0 * z);
    Complex y1 = 0.0;
    Complex y2 = 0.0;
    for (int j = static_cast<int>(c.size()) - 1; j >= 0; --j) {
        const Complex y0 = twoCos * y1 - y2 + c[j];
        y2 = y1;
        y1 = y0;
    }
    return y1 * std::sin(2.0 * z);
}

// c1 n + c2 n^2 + ... for the coefficients c1, c2, ... in order.
double polynomial(std::initializer_list<double> coefficients, double n) {
    double sum = 0.0;
    double power = n;
    for (double c : coefficients) {
        sum += c * power;
        power *= n;
    }
    return sum;
}

// The angle moved into [-pi, pi].
double wrapPi(double angle) {
    return std::remainder(angle, 2.0 * std::numbers::pi);
}

} // namespace

TransverseMercator::TransverseMercator(double semiMajorAxis, double flattening, double scale)
    : m_conformal(std::sqrt(flattening * (2.0 - flattening))) {
    const double n = flattening / (2.0 - flattening);
    const double n2 = n * n;
    const double rectifying =
        semiMajorAxis / (1.0 + n) * (1.0 + n2 / 4.0 + n2 * n2 / 64.0 + n2 * n2 * n2 / 256.0);
    m_dScaledRadius = scale * rectifying;

    // Krüger's coefficients (as given by Karney, J. Geodesy 85, 2011, eqs. 35 and 36).
    m_alpha = {
        polynomial({1.0 / 2, -2.0 / 3, 5.0 / 16, 41.0 / 180, -127.0 / 288, 7891.0 / 37800}, n),
        polynomial({0, 13.0 / 48, -3.0 / 5, 557.0 / 1440, 281.0 / 630, -1983433.0 / 1935360}, n),
        polynomial({0, 0, 61.0 / 240, -103.0 / 140, 15061.0 / 26880, 167603.0 / 181440}, n),
        polynomial({0, 0, 0, 49561.0 / 161280, -179.0 / 168, 6601661.0 / 7257600}, n),
        polynomial({0, 0, 0, 0, 34729.0 / 80640, -3418889.0 / 1995840}, n),
        polynomial({0, 0, 0, 0, 0, 212378941.0 / 319334400}, n),
    };
    m_beta = {
        polynomial({1.0 / 2, -2.0 / 3, 37.0 / 96, -1.0 / 360, -81.0 / 512, 96199.0 / 604800}, n),
        polynomial({0, 1.0 / 48, 1.0 / 15, -437.0 / 1440, 46.0 / 105, -1118711.0 / 3870720}, n),
        polynomial({0, 0, 17.0 / 480, -37.0 / 840, -209.0 / 4480, 5569.0 / 90720}, n),
        polynomial({0, 0, 0, 4397.0 / 161280, -11.0 / 504, -830251.0 / 7257600}, n),
        polynomial({0, 0, 0, 0, 4583.0 / 161280, -108847.0 / 3991680}, n),
        polynomial({0, 0, 0, 0, 0, 20648693.0 / 638668800}, n),
    };
}

void TransverseMercator::forward(double lat, double dLon, double& x, double& y) const {
    const double lon = wrapPi(dLon);
    const double taup = m_conformal.tauPrime(std::tan(lat));
    const double cosLon = std::cos(lon);
    // Gauss-Schreiber (spherical) Transverse Mercator of the conformal sphere ...
    const double xip = std::atan2(taup, cosLon);
    const double etap = std::asinh(std::sin(lon) / std::hypot(taup, cosLon));
    // ... mapped onto the ellipsoid by Krüger's series.
    const Complex zetap(xip, etap);
    const Complex zeta = zetap + sineSeries(m_alpha, zetap);
    x = m_dScaledRadius * zeta.imag();
    y = m_dScaledRadius * zeta.real();
}

void TransverseMercator::reverse(double x, double y, double& lat, double& dLon) const {
    const Complex zeta(y / m_dScaledRadius, x / m_dScaledRadius);
    const Complex zetap = zeta - sineSeries(m_beta, zeta);
    const double xip = zetap.real();
    const double sinhEtap = std::sinh(zetap.imag());
    const double cosXip = std::cos(xip);
    const double taup = std::sin(xip) / std::hypot(sinhEtap, cosXip);
    lat = std::atan(m_conformal.tau(taup));
    dLon = std::atan2(sinhEtap, cosXip);
}
