#include "maps/ui/MapViewport.h"

#include "maps/MapCalibration.h"
#include "nav/GeoConstants.h"

#include <cmath>

namespace {

double metresPerDegree() {
    return KmPerRadian * DegToRad * 1000.0;
}

// A 3x3 matrix for column vectors as a QTransform, which multiplies row vectors.
QTransform fromColumnMatrix(const CMatrix& m) {
    return QTransform(m(0, 0), m(1, 0), m(2, 0), m(0, 1), m(1, 1), m(2, 1), m(0, 2), m(1, 2), m(2, 2));
}

} // namespace

void MapViewport::SetGeoCentre(double lon, double lat) {
    m_plane = Plane::Geographic;
    m_centre = QPointF(lon, lat);
}

void MapViewport::SetImageCentre(QPointF pixel) {
    m_plane = Plane::Image;
    m_centre = pixel;
}

QPointF MapViewport::Anchor() const {
    return QPointF(m_size.width() / 2.0,
                   m_dHorizon > 0 ? m_size.height() * 2.0 / 3.0 : m_size.height() / 2.0);
}

MapViewport MapViewport::Flat() const {
    MapViewport flat = *this;
    flat.m_dHorizon = 0.0;
    return flat;
}

QPointF MapViewport::ToPlane(QPointF point) const {
    if (m_plane == Plane::Image) return point - m_centre;
    const double k = metresPerDegree();
    return QPointF((point.x() - m_centre.x()) * k * std::cos(m_centre.y() * DegToRad),
                   (m_centre.y() - point.y()) * k);
}

QPointF MapViewport::FromPlane(QPointF plane) const {
    if (m_plane == Plane::Image) return plane + m_centre;
    const double k = metresPerDegree();
    return QPointF(m_centre.x() + plane.x() / (k * std::cos(m_centre.y() * DegToRad)),
                   m_centre.y() - plane.y() / k);
}

QTransform MapViewport::PlaneToScreen() const {
    // QTransform composes row-vector style: a * b applies a first. The direction shown up turns to the top.
    QTransform turned =
        QTransform::fromScale(1.0 / m_dScale, 1.0 / m_dScale) * QTransform().rotate(-m_dRotation);
    if (m_dHorizon > 0) {
        // (u, v) -> (P u, P v) / (P - v): unchanged at the centre, the far ground meets the horizon P
        // pixels above it.
        const double p = m_dHorizon;
        turned *= QTransform(p, 0, 0, 0, p, -1, 0, 0, p);
    }
    const QPointF anchor = Anchor();
    return turned * QTransform::fromTranslate(anchor.x(), anchor.y());
}

QPointF MapViewport::ToScreen(QPointF planePoint) const {
    return PlaneToScreen().map(ToPlane(planePoint));
}

std::optional<QPointF> MapViewport::FromScreen(QPointF screen) const {
    if (m_dHorizon > 0 && screen.y() - Anchor().y() <= -m_dHorizon) return std::nullopt;
    bool invertible = false;
    const QTransform back = PlaneToScreen().inverted(&invertible);
    if (!invertible) return std::nullopt;
    return FromPlane(back.map(screen));
}

QTransform MapViewport::MapToScreen(const MapCalibration& map) const {
    if (m_plane == Plane::Image)
        return QTransform::fromTranslate(-m_centre.x(), -m_centre.y()) * PlaneToScreen();
    return fromColumnMatrix(map.PixelToGeoMatrix()) * GeoToScreen();
}

QTransform MapViewport::GeoToScreen() const {
    const double k = metresPerDegree();
    const double east = k * std::cos(m_centre.y() * DegToRad);
    // (lon, lat) -> metres east and south of the centre.
    const QTransform geoToPlane(east, 0, 0, 0, -k, 0, -m_centre.x() * east, m_centre.y() * k, 1);
    return geoToPlane * PlaneToScreen();
}

QRectF MapViewport::VisibleGeoBox() const {
    if (m_plane == Plane::Image || m_size.isEmpty()) return QRectF();
    // The far ground of a perspective view reaches the horizon; a quarter of the way below it is far
    // enough for anything drawn there to be seen.
    const double top = m_dHorizon > 0 ? std::max(0.0, Anchor().y() - m_dHorizon * 0.75) : 0.0;
    const double w = m_size.width(), h = m_size.height();
    double west = 1e9, eastmost = -1e9, south = 1e9, north = -1e9;
    for (const QPointF corner : {QPointF(0, top), QPointF(w, top), QPointF(0, h), QPointF(w, h)}) {
        const std::optional<QPointF> ground = FromScreen(corner);
        if (!ground) continue;
        west = std::min(west, ground->x()), eastmost = std::max(eastmost, ground->x());
        south = std::min(south, ground->y()), north = std::max(north, ground->y());
    }
    if (west > eastmost) return QRectF();
    return QRectF(QPointF(west, south), QPointF(eastmost, north));
}

bool MapViewport::Pan(QPointF from, QPointF to) {
    const auto a = FromScreen(from), b = FromScreen(to);
    if (!a || !b) return false;
    m_centre = FromPlane(ToPlane(*a) - ToPlane(*b));
    return true;
}

bool MapViewport::ZoomAround(QPointF fixed, double factor) {
    const auto ground = FromScreen(fixed);
    if (!ground || !(factor > 0)) return false;
    m_centre = FromPlane(ToPlane(*ground) * (1.0 - 1.0 / factor));
    m_dScale /= factor;
    return true;
}
