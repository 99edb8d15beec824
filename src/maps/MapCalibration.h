#pragma once

#include "maps/CMatrix.h"
#include "settings/ValueText.h"

#include <QImage>
#include <QString>
#include <cstdint>

class CIniFile;

// One map: its image, the image's file name and size, and up to four calibration points that pair a
// pixel with a geographic position (decimal degrees on WGS 84, east and north positive). From the
// points it fits a 3x3 geo-to-pixel matrix and its inverse: two points give a scale and offset per
// axis, three an affine and four a projective transform, each solved exactly and then checked by
// converting the points back. Pixels are integers from the image's top-left corner, y downwards.
// The calibration is kept beside the image in a ".kal" text profile.
class MapCalibration {
public:
    static constexpr int kMaxPoints = 4;

    MapCalibration();
    explicit MapCalibration(const QString& mapFile);
    virtual ~MapCalibration();

    // Stores into slot `index`, lowered to the count when above it (the count then grows by one);
    // refits and marks the calibration modified. 0 for an index above 3.
    int SetPoint(int index, Point pixel, double lon, double lat);
    // Replaces all points by the first n (at most 4) and refits; the modified flag stays. 0 when
    // fewer than two points are given, else 1 whatever the fit gives.
    int SetPoints(int n, const Point* pixels, const double* lons, const double* lats);
    // Removes a point, moving later ones down; refits unless it was the only one (the placeholder
    // matrices then stay). 0 for an index not below the count.
    int DeletePoint(int index);
    Point GetPointPixel(int index) const; // (-1, -1) for an index not below the count
    int GetPointGeo(int index, double& lon, double& lat) const;
    int PointCount() const { return m_nPoints; }

    Point GeoToPixel(double lon, double lat) const;
    void PixelToGeo(int x, int y, double& lon, double& lat) const;
    // Whether the position falls on pixel column 1..width-1 and row 1..height-1.
    bool Contains(double lon, double lat) const;
    // The position of pixel (width/2, height/2); 0 with both 0.0 when there is no point.
    int GetCentre(double& lon, double& lat) const;

    // Recomputes both matrices, the bounding box and metres per pixel; the result of Verify.
    bool Fit();
    // Each point converts to exactly its pixel, and its pixel back to within 1e-5 deg of its position.
    bool Verify() const;

    // A ".kal" file; an empty path means the map file name with its last three characters replaced
    // by "kal" (a map file name shorter than 5 characters fails). The older one-corner layout is read
    // too and at once rewritten in the current layout.
    bool LoadCalibration(const QString& path = QString());
    // The same from a profile already read from `kalPath`, the file an older layout is rewritten to.
    bool LoadCalibrationFrom(CIniFile& ini, const QString& kalPath);
    bool SaveCalibration(const QString& path = QString()) const;

    // Places the map over the square around the centre of the rectangle lon A..B, lat C..D whose
    // half-diagonal is the larger side of the rectangle (km) times `factor`, at least 0.1 km. The
    // points are cleared; with B = 0.0 nothing else happens.
    void AutoCalibrate(double lonA, double lonB, double latC, double latD, double factor);

    void UnloadImage();
    // Replaces the image by a white one of that size and takes the size; false when none could be made.
    bool CreateBlank(int width, int height);

    const QImage& Image() const { return m_bitmap; }
    bool HasImage() const { return !m_bitmap.isNull(); }
    void SetImage(const QImage& image) { m_bitmap = image; }

    const QString& MapFile() const { return m_strMapFile; }
    void SetMapFile(const QString& path) { m_strMapFile = path; }
    Size MapSize() const { return m_size; }
    void SetMapSize(Size size) {
        m_size = size;
        Changed();
    }

    double MetersPerPixel() const { return m_dMetersPerPixel; }
    double MinLong() const { return m_dMinLong; }
    double MinLat() const { return m_dMinLat; }
    double MaxLong() const { return m_dMaxLong; }
    double MaxLat() const { return m_dMaxLat; }
    const CMatrix& GeoToPixelMatrix() const { return m_geoToPixel; }
    const CMatrix& PixelToGeoMatrix() const { return m_pixelToGeo; }
    bool IsModified() const { return m_nModified != 0; }
    void ClearModified() { m_nModified = 0; }

    // Scratch of the catalogue's map choice, which scores every map at each redraw: the score, and
    // GetCentre's position with the sine and cosine of its co-latitude, kept until the points, the
    // matrices or the size change.
    struct SelectionCentre {
        double dLong = 0.0, dLat = 0.0, dSinColat = 0.0, dCosColat = 0.0;
    };
    double Score() const { return m_dScore; }
    void SetScore(double score) { m_dScore = score; }
    const SelectionCentre& CentreForSelection();

private:
    void SolveGeoToPixel();
    void UpdateBoundingBox();

    void Changed() { m_bCentreKnown = false; }

    double m_dScore = 0.0;
    bool m_bCentreKnown = false;
    SelectionCentre m_centre;
    QImage m_bitmap;
    double m_dMetersPerPixel = 1.0;
    double m_dMinLong = 0.0;
    double m_dMinLat = 0.0;
    double m_dMaxLong = 0.0;
    double m_dMaxLat = 0.0;
    int32_t m_nModified = 0;
    Size m_size;
    QString m_strMapFile;
    CMatrix m_pixelToGeo;
    CMatrix m_geoToPixel;
    Point m_points[kMaxPoints];
    double m_dPointLong[kMaxPoints] = {};
    double m_dPointLat[kMaxPoints] = {};
    int32_t m_nPoints = 0;
};
