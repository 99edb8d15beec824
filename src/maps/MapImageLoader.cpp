#include "maps/MapImageLoader.h"

#include "settings/DevLog.h"

#include <QImageReader>
#include <algorithm>
#include <mutex>
#include <new>

namespace {

std::mutex& decoderLock() {
    static std::mutex lock;
    return lock;
}

// The handheld reported the code of the structured exception; a C++ exception there carries
// 0xE06D7363, an allocation failure STATUS_NO_MEMORY.
unsigned exceptionCode(const std::exception& failure) {
    return dynamic_cast<const std::bad_alloc*>(&failure) ? 0xC0000017u : 0xE06D7363u;
}

QImage decode(const QString& path, const QByteArray& format) {
    QImageReader reader(path, format);
    // The memory budget of the map catalogue decides what may be decoded, not Qt's default limit.
    QImageReader::setAllocationLimit(0);
    return reader.read();
}

} // namespace

QSize ReadImageSize(const QString& path) {
    QImageReader reader(path);
    return reader.size();
}

QImage MyLoadBitmap(const QString& path) {
    const std::lock_guard<std::mutex> guard(decoderLock());
    QImage image;
    try {
        image = decode(path, QByteArray());
    } catch (const std::exception& failure) {
        devLog("!!!!!!!!!!Exception in MyLoadBitmap GetExceptionCode: %x", exceptionCode(failure));
    }
    if (image.isNull()) {
        // The plain device-independent bitmap reader, for a .bmp whose header the sniffing rejects.
        try {
            image = decode(path, QByteArrayLiteral("bmp"));
        } catch (const std::exception& failure) {
            devLog("!!!!!!!!!!GetExceptionCode: %x", exceptionCode(failure));
        }
    }
    return image;
}

QImage LoadReducedBitmap(const QString& path, int divisor) {
    const std::lock_guard<std::mutex> guard(decoderLock());
    try {
        QImageReader reader(path);
        const QSize size = reader.size();
        if (!size.isValid() || divisor < 1 || !reader.supportsOption(QImageIOHandler::ScaledSize))
            return QImage();
        reader.setScaledSize(
            QSize(std::max(1, size.width() / divisor), std::max(1, size.height() / divisor)));
        return reader.read();
    } catch (const std::exception& failure) {
        devLog("!!!!!!!!!!Exception in MyLoadBitmap GetExceptionCode: %x", exceptionCode(failure));
        return QImage();
    }
}
