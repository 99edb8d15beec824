#include "platform/audio/NoiseLevel.h"

#include <algorithm>
#include <cmath>

int NoiseLevel::level() const {
    if (m_nSamples == 0 || !(m_dSumOfSquares > 0)) return 0;
    const double rms = std::sqrt(m_dSumOfSquares / double(m_nSamples));
    const double dbfs = 20.0 * std::log10(rms);
    return static_cast<int>(std::clamp(std::lround((dbfs + 64.0) * 4.0), 0L, 255L));
}
