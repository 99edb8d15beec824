#include "maps/MapCalibration.h"

#include "maps/DistanceFromSpot.h"
#include "maps/Truncate.h"
#include "nav/GeoSphere.h"

#include <algorithm>
#include <cmath>

MapCalibration::MapCalibration() : m_pixelToGeo(CMatrix::Identity(3)), m_geoToPixel(CMatrix::Identity(3)) {}

MapCalibration::MapCalibration(const QString& mapFile) : MapCalibration() {
    m_strMapFile = mapFile;
}

MapCalibration::~MapCalibration() = default;

int MapCalibration::SetPoint(int index, Point pixel, double lon, double lat) {
    if (index > kMaxPoints - 1) return 0;
    index = std::max(index, 0);
    if (index >= m_nPoints) {
        index = m_nPoints;
        ++m_nPoints;
    }
    m_points[index] = pixel;
    m_dPointLong[index] = lon;
    m_dPointLat[index] = lat;
    Fit();
    m_nModified = 1;
    return 1;
}

int MapCalibration::SetPoints(int n, const Point* pixels, const double* lons, const double* lats) {
    n = std::min(n, kMaxPoints);
    if (n < 2) return 0;
    std::copy(pixels, pixels + n, m_points);
    std::copy(lons, lons + n, m_dPointLong);
    std::copy(lats, lats + n, m_dPointLat);
    m_nPoints = n;
    Fit();
    return 1;
}

int MapCalibration::DeletePoint(int index) {
    if (index < 0 || index >= m_nPoints) return 0;
    const int before = m_nPoints;
    for (int i = index; i + 1 < before; ++i) {
        m_points[i] = m_points[i + 1];
        m_dPointLong[i] = m_dPointLong[i + 1];
        m_dPointLat[i] = m_dPointLat[i + 1];
    }
    --m_nPoints;
    Changed();
    if (before != 1) Fit();
    m_nModified = 1;
    return 1;
}

Point MapCalibration::GetPointPixel(int index) const {
    if (index < 0 || index >= m_nPoints) return Point{-1, -1};
    return m_points[index];
}

int MapCalibration::GetPointGeo(int index, double& lon, double& lat) const {
    if (index < 0 || index >= m_nPoints) return 0;
    lon = m_dPointLong[index];
    lat = m_dPointLat[index];
    return 1;
}

// Truncating after adding 0.5 rounds negative values differently from positive ones; that only
// shifts pixels left of or above the image, and it is kept.
Point MapCalibration::GeoToPixel(double lon, double lat) const {
    const double in[3] = {lon, lat, 1.0};
    double out[3];
    m_geoToPixel.MultiplyVector(in, out);
    return Point{TruncateToInt32(out[0] / out[2] + 0.5), TruncateToInt32(out[1] / out[2] + 0.5)};
}

void MapCalibration::PixelToGeo(int x, int y, double& lon, double& lat) const {
    const double in[3] = {double(x), double(y), 1.0};
    double out[3];
    m_pixelToGeo.MultiplyVector(in, out);
    lon = out[0] / out[2];
    lat = out[1] / out[2];
}

bool MapCalibration::Contains(double lon, double lat) const {
    if (m_nPoints == 0) return false;
    const Point pixel = GeoToPixel(lon, lat);
    return pixel.x >= 1 && pixel.x < m_size.cx && pixel.y >= 1 && pixel.y < m_size.cy;
}

int MapCalibration::GetCentre(double& lon, double& lat) const {
    if (m_nPoints == 0) {
        lon = lat = 0.0;
        return 0;
    }
    PixelToGeo(m_size.cx >> 1, m_size.cy >> 1, lon, lat);
    return 1;
}

bool MapCalibration::Fit() {
    Changed();
    SolveGeoToPixel();
    m_pixelToGeo = m_geoToPixel;
    m_pixelToGeo.Invert(); // a failed inversion leaves the copy, which the back-conversion then rejects
    UpdateBoundingBox();
    double lonLeft, latLeft, lonRight, latRight;
    PixelToGeo(0, m_size.cy, lonLeft, latLeft);
    PixelToGeo(m_size.cx, m_size.cy, lonRight, latRight);
    m_dMetersPerPixel = GeoDistance(lonLeft, latLeft, lonRight, latRight) * 1000.0 / m_size.cx;
    return Verify();
}

void MapCalibration::SolveGeoToPixel() {
    CMatrix& g = m_geoToPixel;
    g.SetIdentity();
    const Point* p = m_points;
    const double* lon = m_dPointLong;
    const double* lat = m_dPointLat;
    switch (m_nPoints) {
    case 1: // a placeholder while the second point is being placed: one pixel per degree
        g(0, 2) = p[0].x - lon[0];
        g(1, 2) = p[0].y - lat[0];
        break;
    case 2: { // x = a * lon + b, y = c * lat + d
        CMatrix system(4, 5);
        for (int i = 0; i < 2; ++i) {
            system(i, 0) = lon[i], system(i, 1) = 1.0, system(i, 4) = p[i].x;
            system(2 + i, 2) = lat[i], system(2 + i, 3) = 1.0, system(2 + i, 4) = p[i].y;
        }
        const std::vector<double> s = system.SolveAugmented();
        g(0, 0) = s[0], g(0, 2) = s[1], g(1, 1) = s[2], g(1, 2) = s[3];
        break;
    }
    case 3: {
        CMatrix system(6, 7);
        for (int i = 0; i < 3; ++i) {
            system(i, 0) = lon[i], system(i, 1) = lat[i], system(i, 2) = 1.0, system(i, 6) = p[i].x;
            system(3 + i, 3) = lon[i], system(3 + i, 4) = lat[i], system(3 + i, 5) = 1.0;
            system(3 + i, 6) = p[i].y;
        }
        const std::vector<double> s = system.SolveAugmented();
        for (int k = 0; k < 6; ++k)
            g(k / 3, k % 3) = s[k];
        break;
    }
    case 4: {
        CMatrix system(8, 9);
        for (int i = 0; i < 4; ++i) {
            system(i, 0) = lon[i], system(i, 1) = lat[i], system(i, 2) = 1.0;
            system(i, 6) = -double(p[i].x) * lon[i], system(i, 7) = -double(p[i].x) * lat[i];
            system(i, 8) = p[i].x;
            system(4 + i, 3) = lon[i], system(4 + i, 4) = lat[i], system(4 + i, 5) = 1.0;
            system(4 + i, 6) = -double(p[i].y) * lon[i], system(4 + i, 7) = -double(p[i].y) * lat[i];
            system(4 + i, 8) = p[i].y;
        }
        const std::vector<double> s = system.SolveAugmented();
        for (int k = 0; k < 8; ++k)
            g(k / 3, k % 3) = s[k];
        break;
    }
    default:
        break;
    }
}

void MapCalibration::UpdateBoundingBox() {
    // The corners at width and height themselves, not width - 1 and height - 1.
    const int corners[4][2] = {{0, 0}, {m_size.cx, 0}, {0, m_size.cy}, {m_size.cx, m_size.cy}};
    for (int i = 0; i < 4; ++i) {
        double lon, lat;
        PixelToGeo(corners[i][0], corners[i][1], lon, lat);
        if (i == 0) {
            m_dMinLong = m_dMaxLong = lon;
            m_dMinLat = m_dMaxLat = lat;
            continue;
        }
        m_dMinLong = std::min(m_dMinLong, lon);
        m_dMaxLong = std::max(m_dMaxLong, lon);
        m_dMinLat = std::min(m_dMinLat, lat);
        m_dMaxLat = std::max(m_dMaxLat, lat);
    }
}

bool MapCalibration::Verify() const {
    for (int i = 0; i < m_nPoints; ++i) {
        if (GeoToPixel(m_dPointLong[i], m_dPointLat[i]) != m_points[i]) return false;
        double lon, lat;
        PixelToGeo(m_points[i].x, m_points[i].y, lon, lat);
        if (!(std::abs(lon - m_dPointLong[i]) < 1e-5 && std::abs(lat - m_dPointLat[i]) < 1e-5)) return false;
    }
    return true;
}

void MapCalibration::AutoCalibrate(double lonA, double lonB, double latC, double latD, double factor) {
    m_nPoints = 0;
    m_geoToPixel.SetIdentity();
    m_pixelToGeo.SetIdentity();
    Changed();
    if (lonB == 0.0) return;
    const double widthKm = GeoDistance(lonA, latC, lonB, latC) * factor;
    const double heightKm = GeoDistance(lonA, latC, lonA, latD) * factor;
    const double distanceKm = std::max(std::max(widthKm, heightKm), 0.1);
    const double lonCentre = (lonA + lonB) * 0.5;
    const double latCentre = (latC + latD) * 0.5;
    double lonSw, latSw, lonNe, latNe;
    GeoDestination(lonCentre, latCentre, distanceKm, 225.0, lonSw, latSw);
    GeoDestination(lonCentre, latCentre, distanceKm, 45.0, lonNe, latNe);
    if (m_size.cx == 0 || m_size.cy == 0) return;
    // Stretched over a square whatever the image's aspect ratio.
    m_points[0] = Point{0, m_size.cy}, m_dPointLong[0] = lonSw, m_dPointLat[0] = latSw;
    m_points[1] = Point{m_size.cx, 0}, m_dPointLong[1] = lonNe, m_dPointLat[1] = latNe;
    m_nPoints = 2;
    Fit();
}

void MapCalibration::UnloadImage() {
    m_bitmap = QImage();
}

bool MapCalibration::CreateBlank(int width, int height) {
    if (width <= 0 || height <= 0) return false;
    QImage blank(width, height, QImage::Format_RGB16);
    if (blank.isNull()) return false;
    blank.fill(0xFFFF); // every byte 255
    m_bitmap = blank;
    SetMapSize(Size{width, height});
    return true;
}

const MapCalibration::SelectionCentre& MapCalibration::CentreForSelection() {
    if (!m_bCentreKnown) {
        GetCentre(m_centre.dLong, m_centre.dLat);
        CDistanceFromSpot::Colatitude(m_centre.dLat, m_centre.dSinColat, m_centre.dCosColat);
        m_bCentreKnown = true;
    }
    return m_centre;
}
