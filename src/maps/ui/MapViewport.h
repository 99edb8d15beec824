#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QTransform>
#include <optional>

class MapCalibration;

// Where the map view looks and how. On the geographic plane the view is centred on a position
// (decimal degrees) and its scale is metres per screen pixel; a map without calibration is shown on
// its image plane instead, centred on an image pixel, its scale image pixels per screen pixel. The
// direction shown up is in degrees clockwise from north (from the image's top on the image plane).
// The perspective tilts the plane away from the viewer like a car navigation screen: the centre
// then sits at two thirds of the height and the horizon `horizon` pixels above it.
//
// The geographic plane is flat around the centre (metres east and south of it, a degree of
// latitude being 111.12 km as everywhere in the system), so each map's image reaches the screen
// through one projective transform built from its calibration, whatever its own rotation: maps are
// drawn north up however they were scanned.
class MapViewport {
public:
    enum class Plane { Geographic, Image };

    void SetSize(QSize size) { m_size = size; }
    void SetGeoCentre(double lon, double lat);
    void SetImageCentre(QPointF pixel);
    void SetScale(double unitsPerPixel) { m_dScale = unitsPerPixel; }
    void SetRotation(double degrees) { m_dRotation = degrees; }
    void SetPerspective(double horizon) { m_dHorizon = horizon; } // 0: flat

    QSize Size() const { return m_size; }
    Plane GetPlane() const { return m_plane; }
    bool IsGeographic() const { return m_plane == Plane::Geographic; }
    QPointF Centre() const { return m_centre; } // (lon, lat) or an image pixel
    double Scale() const { return m_dScale; }
    double Rotation() const { return m_dRotation; }
    double Horizon() const { return m_dHorizon; }
    // Where the centre is drawn: the middle of the view, in perspective at two thirds of its height.
    QPointF Anchor() const;
    // The same view without perspective.
    MapViewport Flat() const;

    // (lon, lat) or image pixel -> screen pixel.
    QPointF ToScreen(QPointF planePoint) const;
    // Screen pixel -> (lon, lat) or image pixel; nothing at and above the horizon.
    std::optional<QPointF> FromScreen(QPointF screen) const;
    // The map's image pixels -> screen pixels: through its calibration on the geographic plane,
    // as it is on the image plane.
    QTransform MapToScreen(const MapCalibration& map) const;
    // (lon, lat) -> screen pixel as one transform, for the many positions of an overlay.
    QTransform GeoToScreen() const;
    // The (lon, lat) box around what the screen shows; in perspective the ground up to near the
    // horizon. Empty on the image plane.
    QRectF VisibleGeoBox() const;

    // The ground under `from` comes to lie under `to` (a drag); false when either is above the horizon.
    bool Pan(QPointF from, QPointF to);
    // Enlarges by `factor` keeping the ground under `fixed` where it is; the scale shrinks by it.
    bool ZoomAround(QPointF fixed, double factor);

private:
    // Plane coordinates: metres east and south of the centre, or image pixels right of and below it.
    QPointF ToPlane(QPointF point) const;
    QPointF FromPlane(QPointF plane) const;
    QTransform PlaneToScreen() const;

    QSize m_size;
    Plane m_plane = Plane::Geographic;
    QPointF m_centre;
    double m_dScale = 1.0;
    double m_dRotation = 0.0;
    double m_dHorizon = 0.0;
};
