#pragma once

#include "maps/MapCalibration.h"

#include <QImage>
#include <gtest/gtest.h>

// A plain dark green picture of `size` at `path` with a calibration from its bottom-left corner at
// `southWest` to its top-right corner at `northEast` (longitude, latitude) saved beside it.
inline QString writeCalibratedMap(const QString& path, QSize size, QPointF southWest, QPointF northEast) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    EXPECT_TRUE(image.save(path));
    MapCalibration map(path);
    map.SetMapSize(Size{size.width(), size.height()});
    map.SetPoint(0, Point{0, size.height()}, southWest.x(), southWest.y());
    map.SetPoint(1, Point{size.width(), 0}, northEast.x(), northEast.y());
    EXPECT_TRUE(map.SaveCalibration());
    return path;
}
