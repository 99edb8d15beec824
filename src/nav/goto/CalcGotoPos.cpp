#include "nav/goto/CalcGotoPos.h"

#include "nav/CoordinateText.h"
#include "nav/GeoConstants.h"
#include "nav/GeoSphere.h"

namespace {

std::optional<GeoPosition> parsePosition(const QString& lat, const QString& lon) {
    GeoPosition p;
    if (!ParseCoordinate(lat.trimmed(), p.m_dPosLat) || !ParseCoordinate(lon.trimmed(), p.m_dPosLong))
        return std::nullopt;
    return p;
}

} // namespace

std::optional<CalcForwardResult> CalcForward(const QString& latFrom, const QString& lonFrom, double courseDeg,
                                             double distanceKm, PosFormat format) {
    const auto from = parsePosition(latFrom, lonFrom);
    if (!from) return std::nullopt;
    CalcForwardResult result;
    GeoDestination(from->m_dPosLong, from->m_dPosLat, distanceKm, courseDeg, result.m_position.m_dPosLong,
                   result.m_position.m_dPosLat);
    result.m_strLat = FormatCoordinate(result.m_position.m_dPosLat, format, true);
    result.m_strLon = FormatCoordinate(result.m_position.m_dPosLong, format, false);
    return result;
}

std::optional<CalcBackwardResult> CalcBackward(const QString& latFrom, const QString& lonFrom,
                                               const QString& latTo, const QString& lonTo) {
    const auto from = parsePosition(latFrom, lonFrom);
    const auto to = parsePosition(latTo, lonTo);
    if (!from || !to) return std::nullopt;
    CalcBackwardResult result;
    float course = 0;
    result.m_dDistanceKm =
        GeoDistance(from->m_dPosLong, from->m_dPosLat, to->m_dPosLong, to->m_dPosLat, &course);
    result.m_dCourseDeg = course * RadToDeg;
    result.m_strDistance = QString::asprintf("%.03f", result.m_dDistanceKm);
    result.m_strCourse = QString::asprintf("%.03f", result.m_dCourseDeg);
    return result;
}
