#include "maps/ui/COverlayImage.h"

#include "maps/ui/CMapOverlay.h"

#include <QPainter>
#include <QThreadPool>
#include <cmath>
#include <condition_variable>
#include <mutex>

namespace {

// One thread for the overlay images of all map pages.
QThreadPool& overlayThread() {
    static QThreadPool* pool = [] {
        auto* made = new QThreadPool;
        made->setMaxThreadCount(1);
        made->setExpiryTimeout(-1);
        return made;
    }();
    return *pool;
}

int margin(QSize size) {
    return std::max(COverlayImage::kMinMargin, int(std::hypot(size.width(), size.height()) / 6));
}

// `view` plus an even number of pixels, at least `wanted`, at most kMaxEdge when that allows.
int edge(int view, double wanted) {
    int grown = view + 2 * int(std::ceil(std::max(0.0, wanted - view) / 2.0));
    while (grown > COverlayImage::kMaxEdge && grown - 2 >= view)
        grown -= 2;
    return grown;
}

} // namespace

struct COverlayImage::Job {
    std::mutex mutex;
    std::condition_variable finished;
    bool bDone = false;
    QImage image;
};

COverlayImage::COverlayImage(QObject* parent) : QObject(parent) {}

COverlayImage::~COverlayImage() {
    if (!m_pJob) return;
    std::unique_lock lock(m_pJob->mutex);
    m_pJob->finished.wait(lock, [this] { return m_pJob->bDone; });
}

MapViewport COverlayImage::ImageViewport(const MapViewport& viewport) {
    MapViewport image = viewport.Flat();
    image.SetRotation(0.0);
    const QSize size = viewport.Size();
    const double side = std::hypot(size.width(), size.height()) + 2.0 * margin(size);
    image.SetSize(QSize(edge(size.width(), side), edge(size.height(), side)));
    return image;
}

bool COverlayImage::Serves(const Plan& plan, const MapViewport& viewport) const {
    const MapViewport& drawn = plan.viewport;
    if (plan.nGeneration != m_nGeneration || drawn.Scale() != viewport.Scale() ||
        drawn.Size() != ImageViewport(viewport).Size())
        return false;
    const QPointF moved = drawn.ToScreen(viewport.Centre()) - drawn.Anchor();
    const int allowed = margin(viewport.Size());
    return std::abs(moved.x()) <= allowed && std::abs(moved.y()) <= allowed;
}

void COverlayImage::Paint(QPainter& painter, const MapViewport& viewport,
                          const std::vector<CMapOverlay*>& overlays) {
    bool changed = false;
    for (CMapOverlay* overlay : overlays)
        changed = overlay->Changed() || changed;
    if (changed) Invalidate();
    if (m_pJob) {
        std::unique_lock lock(m_pJob->mutex);
        if (m_pJob->bDone) lock.unlock(), Collect();
    }
    if (!m_pJob && !(m_shown && Serves(*m_shown, viewport))) Start(viewport, overlays);
    if (!m_shown || m_image.isNull()) return;
    const QTransform toScreen = m_shown->viewport.GeoToScreen().inverted() * viewport.GeoToScreen();
    painter.save();
    if (toScreen.type() <= QTransform::TxScale && std::abs(toScreen.m11() - 1.0) < 1e-3 &&
        std::abs(toScreen.m22() - 1.0) < 1e-3) {
        // Moved only: pixel for pixel, the fastest way and as sharp as drawn.
        painter.resetTransform();
        painter.drawImage(QPoint(int(std::lround(toScreen.dx())), int(std::lround(toScreen.dy()))), m_image);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setTransform(toScreen);
        painter.drawImage(0, 0, m_image);
    }
    painter.restore();
}

void COverlayImage::Start(const MapViewport& viewport, const std::vector<CMapOverlay*>& overlays) {
    m_pending = {ImageViewport(viewport), m_nGeneration};
    std::vector<CMapOverlay::Drawing> drawings;
    for (CMapOverlay* overlay : overlays)
        if (CMapOverlay::Drawing drawing = overlay->Prepare(m_pending.viewport))
            drawings.push_back(std::move(drawing));
    auto job = std::make_shared<Job>();
    m_pJob = job;
    overlayThread().start([this, job, drawings = std::move(drawings), size = m_pending.viewport.Size()] {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        if (!image.isNull()) {
            image.fill(Qt::transparent);
            QPainter painter(&image);
            for (const CMapOverlay::Drawing& drawing : drawings)
                drawing(painter);
        }
        // Told before it counts as done: the destructor waits for done, so this object is still there.
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT ready(); }, Qt::QueuedConnection);
        std::lock_guard lock(job->mutex);
        job->image = std::move(image);
        job->bDone = true;
        job->finished.notify_all();
    });
}

void COverlayImage::Collect() {
    m_image = std::move(m_pJob->image);
    m_shown = m_pending;
    m_pJob.reset();
}

void COverlayImage::Finish() {
    if (!m_pJob) return;
    {
        std::unique_lock lock(m_pJob->mutex);
        m_pJob->finished.wait(lock, [this] { return m_pJob->bDone; });
    }
    Collect();
}

void COverlayImage::Drop() {
    Finish();
    m_image = QImage();
    m_shown.reset();
}
