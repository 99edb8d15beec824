// Any bytes as a shapefile layer: the first half as the .shp, the second as the .shx, a small .dbf
// beside them; opened, queried over its whole box and over a corner. Also the bytes as a "\Tarvik.gsh".
#include "maps/shapes/ShapeLayers.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdint>

namespace {
void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static QTemporaryDir scratch;
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const QString base = scratch.filePath("fuzz");
    write(base + ".shp", bytes.left(bytes.size() / 2));
    write(base + ".shx", bytes.mid(bytes.size() / 2));
    write(base + ".dbf", bytes.right(std::min<qsizetype>(bytes.size(), 200)));
    QString error;
    if (auto layer = CShapeLayer::Open(base + ".shp", "NAME", error)) {
        const QRectF box = layer->Bounds();
        for (const QRectF query : {box, QRectF(box.topLeft(), box.size() / 3)})
            for (const Shape* shape : layer->ShapesIn(query))
                if (shape->m_parts.empty()) __builtin_trap();
    } else if (error.isEmpty() || error.contains('\n')) {
        __builtin_trap(); // a refused layer always says why, in one line
    }
    for (const ShapeLayerStyle& style :
         ReadShapeProfile(bytes, scratch.path(), [](const QString& path) { return path; }))
        if (style.m_strFile.isEmpty() || style.m_nWidth < 1) __builtin_trap();
    return 0;
}
