#include "demo/SeededRandom.h"

#include <cmath>
#include <numbers>

double SeededRandom::uniform(double low, double high) {
    const double unit = static_cast<double>(m_engine() >> 11) * 0x1.0p-53; // 53 random bits in [0, 1)
    return low + (high - low) * unit;
}

double SeededRandom::normal(double mean, double sigma) {
    // Box-Muller; 1 - u keeps the logarithm away from 0.
    const double u = 1.0 - uniform(0.0, 1.0);
    const double v = uniform(0.0, 1.0);
    return mean + sigma * std::sqrt(-2.0 * std::log(u)) * std::cos(2.0 * std::numbers::pi * v);
}

double WanderingOffset::step(SeededRandom& random, double dtS) {
    const double keep = std::exp(-dtS / m_dTauS);
    m_dValue = keep * m_dValue + random.normal(0.0, m_dSigma * std::sqrt(1.0 - keep * keep));
    return m_dValue;
}
