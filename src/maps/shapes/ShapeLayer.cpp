#include "maps/shapes/ShapeLayer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <shapefil.h>

namespace {

// shapelib reports its errors through a hook; the last one explains a failed open.
thread_local QString t_strShapelibError;

void recordError(const char* message) {
    t_strShapelibError = QString::fromLocal8Bit(message).trimmed();
}

SAHooks hooks() {
    SAHooks h;
    SASetupDefaultHooks(&h);
    h.Error = recordError;
    return h;
}

QString sibling(const QString& shp, const char* extension) {
    const QFileInfo info(shp);
    const QString base = info.dir().filePath(info.completeBaseName());
    for (const QString& candidate : {base + '.' + extension, base + '.' + QString(extension).toUpper()})
        if (QFile::exists(candidate)) return candidate;
    return QString();
}

Shape::Kind kindOf(int shapeType) {
    switch (shapeType) {
    case SHPT_POINT:
    case SHPT_POINTZ:
    case SHPT_POINTM:
    case SHPT_MULTIPOINT:
    case SHPT_MULTIPOINTZ:
    case SHPT_MULTIPOINTM:
        return Shape::Kind::Points;
    case SHPT_POLYGON:
    case SHPT_POLYGONZ:
    case SHPT_POLYGONM:
        return Shape::Kind::Polygons;
    default:
        return Shape::Kind::Lines;
    }
}

bool isDrawable(int shapeType) {
    return shapeType != SHPT_NULL && shapeType != SHPT_MULTIPATCH;
}

} // namespace

bool IsWgs84Prj(const QByteArray& prj) {
    const QByteArray text = prj.toUpper();
    return text.contains("GEOGCS") && !text.contains("PROJCS") &&
           (text.contains("WGS_1984") || text.contains("WGS 84") || text.contains("WGS84"));
}

struct CShapeLayer::Files {
    SHPHandle m_hShp = nullptr;
    DBFHandle m_hDbf = nullptr;
    SHPTree* m_pTree = nullptr;

    ~Files() {
        if (m_pTree) SHPDestroyTree(m_pTree);
        if (m_hDbf) DBFClose(m_hDbf);
        if (m_hShp) SHPClose(m_hShp);
    }
};

CShapeLayer::CShapeLayer() : m_pFiles(std::make_unique<Files>()) {}

CShapeLayer::~CShapeLayer() = default;

std::unique_ptr<CShapeLayer> CShapeLayer::Open(const QString& path, const QString& labelField,
                                               QString& error) {
    const QString name = QFileInfo(path).fileName();
    if (!QFile::exists(path)) {
        error = QStringLiteral("%1: file not found").arg(name);
        return nullptr;
    }
    if (sibling(path, "shx").isEmpty() || sibling(path, "dbf").isEmpty()) {
        error = QStringLiteral("%1: the .shx or .dbf file beside it is missing").arg(name);
        return nullptr;
    }
    if (const QString prj = sibling(path, "prj"); !prj.isEmpty()) {
        QFile file(prj);
        if (file.open(QIODevice::ReadOnly) && !IsWgs84Prj(file.read(65536))) {
            error = QStringLiteral("%1: its .prj names another coordinate system than WGS 84").arg(name);
            return nullptr;
        }
    }
    std::unique_ptr<CShapeLayer> layer(new CShapeLayer);
    SAHooks h = hooks();
    t_strShapelibError.clear();
    const QByteArray local = QFile::encodeName(path);
    layer->m_pFiles->m_hShp = SHPOpenLL(local.constData(), "rb", &h);
    if (layer->m_pFiles->m_hShp)
        layer->m_pFiles->m_hDbf = DBFOpenLL(QFile::encodeName(sibling(path, "dbf")).constData(), "rb", &h);
    if (!layer->m_pFiles->m_hShp || !layer->m_pFiles->m_hDbf) {
        error = QStringLiteral("%1: not a readable shapefile%2")
                    .arg(name, t_strShapelibError.isEmpty() ? QString() : " (" + t_strShapelibError + ")");
        return nullptr;
    }
    int type = 0;
    double lo[4], hi[4];
    SHPGetInfo(layer->m_pFiles->m_hShp, &layer->m_nCount, &type, lo, hi);
    if (!isDrawable(type)) {
        error = QStringLiteral("%1: shapes of type %2 are not drawn").arg(name).arg(type);
        return nullptr;
    }
    layer->m_bounds = QRectF(QPointF(lo[0], lo[1]), QPointF(hi[0], hi[1]));
    if (!labelField.isEmpty())
        layer->m_nLabelField = DBFGetFieldIndex(layer->m_pFiles->m_hDbf, labelField.toUtf8().constData());
    // The index is filled here rather than by SHPCreateTree, so that a record that cannot be read
    // (a truncated file) refuses the layer instead of leaving a hole.
    // About four shapes a leaf, as shapelib picks the depth when it reads the file itself.
    int depth = 1;
    for (int64_t leaves = 1; leaves * 4 < layer->m_nCount && depth < 16; leaves *= 2)
        ++depth;
    layer->m_pFiles->m_pTree = SHPCreateTree(nullptr, 2, depth, lo, hi);
    for (int id = 0; id < layer->m_nCount; ++id) {
        SHPObject* object = SHPReadObject(layer->m_pFiles->m_hShp, id);
        if (!object) {
            error = QStringLiteral("%1: record %2 of %3 cannot be read (truncated file?)")
                        .arg(name)
                        .arg(id + 1)
                        .arg(layer->m_nCount);
            return nullptr;
        }
        layer->m_boxes.push_back(
            QRectF(QPointF(object->dfXMin, object->dfYMin), QPointF(object->dfXMax, object->dfYMax)));
        if (object->nSHPType != SHPT_NULL) SHPTreeAddShapeId(layer->m_pFiles->m_pTree, object);
        SHPDestroyObject(object);
    }
    layer->m_boxes.shrink_to_fit();
    SHPTreeTrimExtraNodes(layer->m_pFiles->m_pTree);
    return layer;
}

std::shared_ptr<const Shape> CShapeLayer::ReadShape(int id) const {
    SHPObject* object = SHPReadObject(m_pFiles->m_hShp, id);
    if (!object) return nullptr;
    auto shape = std::make_shared<Shape>();
    shape->m_kind = kindOf(object->nSHPType);
    if (shape->m_kind == Shape::Kind::Points || object->nParts == 0) {
        QPolygonF points;
        points.reserve(object->nVertices);
        for (int i = 0; i < object->nVertices; ++i)
            points.append(QPointF(object->padfX[i], object->padfY[i]));
        shape->m_parts.push_back(std::move(points));
    } else {
        for (int part = 0; part < object->nParts; ++part) {
            const int from = object->panPartStart[part];
            const int to = part + 1 < object->nParts ? object->panPartStart[part + 1] : object->nVertices;
            QPolygonF points;
            points.reserve(std::max(0, to - from));
            for (int i = from; i < to && i < object->nVertices; ++i)
                points.append(QPointF(object->padfX[i], object->padfY[i]));
            shape->m_parts.push_back(std::move(points));
        }
    }
    SHPDestroyObject(object);
    if (m_nLabelField >= 0 && !DBFIsAttributeNULL(m_pFiles->m_hDbf, id, m_nLabelField))
        shape->m_strLabel =
            QString::fromUtf8(DBFReadStringAttribute(m_pFiles->m_hDbf, id, m_nLabelField)).trimmed();
    return shape;
}

const std::vector<const Shape*>& CShapeLayer::ShapesIn(const QRectF& box) {
    double lo[4] = {box.left(), box.top(), 0, 0};
    double hi[4] = {box.right(), box.bottom(), 0, 0};
    int count = 0;
    int* ids = SHPTreeFindLikelyShapes(m_pFiles->m_pTree, lo, hi, &count);
    std::sort(ids, ids + count);
    std::unordered_map<int, std::shared_ptr<const Shape>> kept;
    kept.reserve(size_t(count));
    m_found.clear();
    for (int i = 0; i < count; ++i) {
        // The tree gives the shapes of the nodes the box meets; their own boxes tell.
        const QRectF& bounds = m_boxes[size_t(ids[i])];
        if (bounds.left() > box.right() || bounds.right() < box.left() || bounds.top() > box.bottom() ||
            bounds.bottom() < box.top())
            continue;
        auto cached = m_cache.find(ids[i]);
        std::shared_ptr<const Shape> shape = cached != m_cache.end() ? cached->second : ReadShape(ids[i]);
        if (!shape) continue;
        m_found.push_back(shape.get());
        kept.emplace(ids[i], std::move(shape));
    }
    free(ids);
    m_cache = std::move(kept);
    return m_found;
}
