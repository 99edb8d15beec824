#pragma once

#include <QImage>
#include <QSize>
#include <QString>

// Decoding of map images (JPEG, PNG, GIF, BMP). Every decode of the process runs behind one lock,
// as on the handheld, where the system's image decoder was not to be entered twice.

// The image's size from its header, without decoding; invalid when the file is no readable image.
QSize ReadImageSize(const QString& path);

// Decodes the file; a null image when neither the image decoder nor the plain bitmap reader can
// read it. Failures inside the decoders are caught and logged, never passed on.
QImage MyLoadBitmap(const QString& path);

// A quick reduced decode for a preview while the whole image decodes: at 1/`divisor` of its size
// when the decoder can scale while decoding (JPEG), else a null image. Behind the same lock.
QImage LoadReducedBitmap(const QString& path, int divisor);
