#pragma once

#include <cstdint>
#include <random>

// Random numbers that are the same for the same seed on every machine and standard library: the
// standard distributions are not specified bit for bit, so the conversions are done here.
class SeededRandom {
public:
    explicit SeededRandom(uint64_t seed) : m_engine(seed) {}

    // Uniform in [low, high).
    double uniform(double low, double high);
    // Normally distributed with the given mean and standard deviation.
    double normal(double mean, double sigma);

private:
    std::mt19937_64 m_engine;
};

// A slowly wandering offset around 0 (a first-order Gauss-Markov process), as a receiver's
// position and altitude errors wander: standard deviation `sigma`, correlation time `tauS`.
class WanderingOffset {
public:
    WanderingOffset(double sigma, double tauS) : m_dSigma(sigma), m_dTauS(tauS) {}
    // The offset after `dtS` more seconds.
    double step(SeededRandom& random, double dtS);

private:
    double m_dSigma;
    double m_dTauS;
    double m_dValue = 0;
};
