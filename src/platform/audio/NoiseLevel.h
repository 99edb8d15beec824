#pragma once

#include <cstdint>

// Sums a block of samples into the noise level of NoiseMeter::level(): 0 at -64 dBFS and below,
// 255 at full scale, four units per decibel of the root mean square.
class NoiseLevel {
public:
    // One sample, normalised to -1..1.
    void add(float sample) {
        m_dSumOfSquares += double(sample) * sample;
        ++m_nSamples;
    }
    int64_t samples() const { return m_nSamples; }
    // The level of the samples added since the last reset (0 when none).
    int level() const;
    void reset() {
        m_dSumOfSquares = 0;
        m_nSamples = 0;
    }

private:
    double m_dSumOfSquares = 0;
    int64_t m_nSamples = 0;
};
