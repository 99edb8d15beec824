#include "nav/goto/TypedTarget.h"

#include "nav/CoordinateText.h"
#include "nav/GeoConstants.h"
#include "nav/MercatorMetres.h"
#include "nav/Mgrs.h"
#include "nav/Utm.h"
#include "settings/ValueText.h"

#include <cmath>

namespace {

constexpr int kUtmFatal = UtmError::Latitude | UtmError::Longitude | UtmError::Zone | UtmError::Hemisphere;

std::optional<GeoPosition> fromDegrees(const TypedTargetFields& f) {
    GeoPosition p;
    if (!ParseCoordinate(f.m_strLat.trimmed(), p.m_dPosLat) ||
        !ParseCoordinate(f.m_strLon.trimmed(), p.m_dPosLong))
        return std::nullopt;
    return p;
}

std::optional<GeoPosition> fromUtm(const TypedTargetFields& f) {
    const QString hemisphere = f.m_strHemisphere.trimmed().toUpper();
    if (hemisphere.size() != 1) return std::nullopt;
    bool zoneOk = false, eastOk = false, northOk = false;
    const int zone = f.m_strZone.trimmed().toInt(&zoneOk);
    const double easting = f.m_strEasting.trimmed().toDouble(&eastOk);
    const double northing = f.m_strNorthing.trimmed().toDouble(&northOk);
    if (!zoneOk || !eastOk || !northOk) return std::nullopt;
    double lat = 0, lon = 0;
    if (UtmToGeodetic(zone, hemisphere[0].toLatin1(), easting, northing, lat, lon) & kUtmFatal)
        return std::nullopt;
    return GeoPosition{lat * RadToDeg, lon * RadToDeg};
}

std::optional<GeoPosition> fromMgrs(const TypedTargetFields& f) {
    QString reference = f.m_strMgrs;
    reference.remove(' ');
    double lat = 0, lon = 0;
    if (!MgrsToGeodetic(reference.toLatin1(), lat, lon)) return std::nullopt;
    return GeoPosition{lat * RadToDeg, lon * RadToDeg};
}

std::optional<GeoPosition> fromMercatorMetres(const TypedTargetFields& f) {
    GeoPosition p;
    if (!mercatorMetresToGeodetic(ValueText::wtol(f.m_strLon), ValueText::wtol(f.m_strLat), p.m_dPosLat,
                                  p.m_dPosLong))
        return std::nullopt;
    return p;
}

} // namespace

bool UsesLatLonFields(PosFormat format) {
    return format == PosFormat::DegreesMinutes || format == PosFormat::DegreesMinutesSeconds ||
           format == PosFormat::DecimalDegrees || format == PosFormat::FalkMarcoPolo;
}

bool UsesUtmFields(PosFormat format) {
    return format == PosFormat::Utm;
}

bool UsesMgrsField(PosFormat format) {
    return format == PosFormat::Mgrs;
}

std::optional<GeoPosition> ParseTypedTarget(PosFormat format, const TypedTargetFields& fields) {
    switch (format) {
    case PosFormat::Utm:
        return fromUtm(fields);
    case PosFormat::Mgrs:
        return fromMgrs(fields);
    case PosFormat::FalkMarcoPolo:
        return fromMercatorMetres(fields);
    default:
        return fromDegrees(fields);
    }
}

TypedTargetFields FormatTypedTarget(PosFormat format, const GeoPosition& p) {
    TypedTargetFields f;
    const double lat = p.m_dPosLat * DegToRad, lon = p.m_dPosLong * DegToRad;
    if (format == PosFormat::Utm) {
        int32_t zone = 0;
        char hemisphere = 'N';
        double easting = 0, northing = 0;
        if (GeodeticToUtm(lat, lon, zone, hemisphere, easting, northing) & kUtmFatal) return f;
        f.m_strZone = QString::number(zone);
        f.m_strHemisphere = QChar(hemisphere);
        f.m_strEasting = QString::number(std::lround(easting));
        f.m_strNorthing = QString::number(std::lround(northing));
    } else if (format == PosFormat::Mgrs) {
        QByteArray reference;
        if (GeodeticToMgrs(lat, lon, 5, reference) == 0) f.m_strMgrs = QString::fromLatin1(reference);
    } else if (format == PosFormat::FalkMarcoPolo) {
        int32_t x = 0, y = 0;
        if (GeodeticToMercatorMetres(p.m_dPosLat, p.m_dPosLong, x, y)) {
            f.m_strLat = QString::number(y);
            f.m_strLon = QString::number(x);
        }
    } else {
        f.m_strLat = FormatCoordinate(p.m_dPosLat, format, true);
        f.m_strLon = FormatCoordinate(p.m_dPosLong, format, false);
    }
    return f;
}

PosFormat DegreeNotation(PosFormat format) {
    return format == PosFormat::DegreesMinutes || format == PosFormat::DegreesMinutesSeconds
               ? format
               : PosFormat::DecimalDegrees;
}
