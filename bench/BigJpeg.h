#pragma once

#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageWriter>

// A 10000 x 8000 JPEG (85 % quality, a busy pattern), kept in the temporary folder for the next run
// and for the peers of bench/maps.sh.
inline QString bigJpeg() {
    const QString path = QDir::temp().filePath("tarvik-bench-10000x8000.jpg");
    if (QFile::exists(path)) return path;
    QImage image(10000, 8000, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = qRgb((x * 7) & 255, (y * 5) & 255, ((x ^ y) * 3) & 255);
    }
    QImageWriter writer(path, "jpeg");
    writer.setQuality(85);
    writer.write(image);
    return path;
}
