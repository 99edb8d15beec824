#include "maps/ui/CMapDecoder.h"

#include "maps/MapImageLoader.h"

#include <QImageReader>

CMapDecoder::CMapDecoder(QObject* parent) : QObject(parent) {
    m_pool.setMaxThreadCount(1); // the decoders are serialised anyway
}

CMapDecoder::~CMapDecoder() {
    Forget();
    m_pool.waitForDone();
}

std::optional<QImage> CMapDecoder::Take(const QString& path) {
    if (m_failed.contains(path)) return QImage();
    if (const auto done = m_done.find(path); done != m_done.end()) {
        QImage image = std::move(done->second);
        m_done.erase(done);
        if (image.isNull()) m_failed.insert(path);
        return image;
    }
    if (m_requested.contains(path)) return std::nullopt;
    m_requested.insert(path);
    const unsigned generation = m_nGeneration;
    m_pool.start([this, path, generation] {
        if (generation != m_nGeneration) return; // forgotten before it started
        const QSize size = QImageReader(path).size();
        if (int64_t(size.width()) * size.height() > kPreviewPixels) {
            const QImage reduced = LoadReducedBitmap(path, kPreviewDivisor);
            if (!reduced.isNull())
                QMetaObject::invokeMethod(
                    this, [this, path, reduced] { Q_EMIT preview(path, reduced); }, Qt::QueuedConnection);
        }
        QImage image = MyLoadBitmap(path);
        image.convertTo(QImage::Format_RGB16); // here rather than on the window's thread
        QMetaObject::invokeMethod(
            this, [this, path, image, generation] { Finished(path, image, generation); },
            Qt::QueuedConnection);
    });
    return std::nullopt;
}

void CMapDecoder::Finished(const QString& path, const QImage& image, unsigned generation) {
    if (generation != m_nGeneration) return;
    m_requested.remove(path);
    m_done[path] = image;
    Q_EMIT decoded(path);
}

int64_t CMapDecoder::HeldBytes() const {
    int64_t bytes = 0;
    for (const auto& [path, image] : m_done)
        bytes += image.sizeInBytes();
    return bytes;
}

void CMapDecoder::Forget() {
    ++m_nGeneration;
    m_pool.clear();
    m_requested.clear();
    m_failed.clear();
    m_done.clear();
}
