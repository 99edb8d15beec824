#include "integrations/navbridge/NavMapPositions.h"

namespace {
std::optional<GeoPosition> known(double lat, double lon) {
    if (lat == 0 || lon == 0) return std::nullopt;
    return GeoPosition{lat, lon};
}
} // namespace

std::optional<GeoPosition> NavMapPositions::mapCentre(const MNPosition& p) {
    if (!known(p.m_dLatTopLeft, p.m_dLonTopLeft) || !known(p.m_dLatBottomRight, p.m_dLonBottomRight))
        return std::nullopt;
    return GeoPosition{(p.m_dLatTopLeft + p.m_dLatBottomRight) / 2,
                       (p.m_dLonTopLeft + p.m_dLonBottomRight) / 2};
}

std::optional<GeoPosition> NavMapPositions::lastClick(const MNPosition& p) {
    return known(p.m_nClickLat * 1e-6, p.m_nClickLon * 1e-6);
}
