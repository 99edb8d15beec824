#include "nav/ConformalLatitude.h"

#include <algorithm>
#include <cmath>
#include <limits>

ConformalLatitude::ConformalLatitude(double eccentricity)
    : m_dEcc(eccentricity), m_dEcc2m(1.0 - eccentricity * eccentricity) {}

double ConformalLatitude::tauPrime(double tau) const {
    const double tau1 = std::hypot(1.0, tau);
    const double sig = std::sinh(m_dEcc * std::atanh(m_dEcc * tau / tau1));
    return std::hypot(1.0, sig) * tau - sig * tau1;
}

double ConformalLatitude::tau(double tauPrime) const {
    if (!std::isfinite(tauPrime)) return tauPrime;
    const double tol = std::sqrt(std::numeric_limits<double>::epsilon()) * 0.1;
    double tau = tauPrime / m_dEcc2m;
    for (int i = 0; i < 10; ++i) {
        const double tau1 = std::hypot(1.0, tau);
        const double taupa = this->tauPrime(tau);
        const double step =
            (tauPrime - taupa) * (1.0 + m_dEcc2m * tau * tau) / (m_dEcc2m * tau1 * std::hypot(1.0, taupa));
        tau += step;
        if (std::abs(step) < tol * std::max(1.0, std::abs(tau))) break;
    }
    return tau;
}
