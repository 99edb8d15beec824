#pragma once

#include "maps/ui/MapViewport.h"

#include <QImage>
#include <QObject>
#include <memory>
#include <optional>
#include <vector>

class CMapOverlay;

// The overlays' ground drawn once into an image of their own, north up in the map's pixels at the
// current zoom, covering the view turned any way plus a margin, and placed with the map's transform
// every frame (north up, turned and in perspective alike). A new image is drawn on a worker thread
// when the zoom changes, the view nears the image's edge or an overlay's data changed; the one
// before stays on the screen meanwhile, moved and scaled with the map. One worker serves all map
// pages, so the overlays' shared data (the shapefile layers) is read by one thread at a time.
class COverlayImage : public QObject {
    Q_OBJECT
public:
    // Pixels the view may move before a new image is wanted: a sixth of its diagonal, at least this.
    static constexpr int kMinMargin = 48;
    static constexpr int kMaxEdge = 4096; // pixels

    explicit COverlayImage(QObject* parent = nullptr);
    ~COverlayImage() override; // waits for the drawing under way

    // The overlays' data changed: the image is drawn again.
    void Invalidate() { ++m_nGeneration; }
    // Places the image for the geographic `viewport`, and starts drawing a new one of `overlays`
    // when it is out of date and no drawing is under way.
    void Paint(QPainter& painter, const MapViewport& viewport, const std::vector<CMapOverlay*>& overlays);
    // Waits for the drawing under way and shows its image: for offscreen frames that must show
    // every overlay.
    void Finish();
    // Lets the image go (memory is short); the next frame draws it again.
    void Drop();

    // The north-up viewport an image drawn for `viewport` has: centred on the same ground, its
    // edges an even number of pixels beyond the view's so that its pixels meet the screen's.
    static MapViewport ImageViewport(const MapViewport& viewport);

Q_SIGNALS:
    void ready(); // a new image is there: the next frame shows it

private:
    struct Job;
    struct Plan {
        MapViewport viewport;
        unsigned nGeneration = 0;
    };
    // Whether an image drawn after `plan` still serves `viewport`.
    bool Serves(const Plan& plan, const MapViewport& viewport) const;
    void Start(const MapViewport& viewport, const std::vector<CMapOverlay*>& overlays);
    void Collect();

    unsigned m_nGeneration = 1;
    QImage m_image;
    std::optional<Plan> m_shown;
    Plan m_pending;
    std::shared_ptr<Job> m_pJob; // the drawing under way
};
