#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <memory>
#include <unordered_map>
#include <vector>

// One shape of a layer in longitude (x) and latitude (y), degrees WGS 84.
struct Shape {
    enum class Kind : uint8_t { Points, Lines, Polygons };
    Kind m_kind = Kind::Lines;
    std::vector<QPolygonF> m_parts; // points: one part holding every point
    QString m_strLabel;
};

// An ESRI shapefile (.shp with its .shx and .dbf) opened for drawing. A spatial index built at open
// finds the shapes in a box, so only those are read; the shapes of the last box are kept, so that a
// map moved a little reads only what came into view. A file whose .prj names another system than
// WGS 84 geographic coordinates is refused: the layer would be drawn in the wrong place.
class CShapeLayer {
public:
    ~CShapeLayer();
    CShapeLayer(const CShapeLayer&) = delete;
    CShapeLayer& operator=(const CShapeLayer&) = delete;

    // Opens the .shp at the host path; `labelField` names the .dbf field of the labels (empty:
    // none). Nothing, with one line in `error`, when a file is missing, truncated or of another
    // coordinate system.
    static std::unique_ptr<CShapeLayer> Open(const QString& path, const QString& labelField, QString& error);

    int Count() const { return m_nCount; }
    QRectF Bounds() const { return m_bounds; } // lon, lat
    // The shapes whose bounding boxes meet `box` (lon, lat), in file order. Valid until the next call.
    const std::vector<const Shape*>& ShapesIn(const QRectF& box);

private:
    CShapeLayer();
    std::shared_ptr<const Shape> ReadShape(int id) const;

    struct Files; // shapelib's handles and the index
    std::unique_ptr<Files> m_pFiles;
    int m_nCount = 0;
    int m_nLabelField = -1;
    QRectF m_bounds;
    std::vector<QRectF> m_boxes; // each shape's bounding box (lon, lat); empty for a null shape
    std::unordered_map<int, std::shared_ptr<const Shape>> m_cache; // the shapes of the last box
    std::vector<const Shape*> m_found;
};

// Whether a .prj text names WGS 84 geographic coordinates (no projection).
bool IsWgs84Prj(const QByteArray& prj);
