#pragma once

#include "nav/GeoPosition.h"

#include <functional>
#include <optional>

#include "maps/CMapCatalogue.h"
#include "maps/ui/MapDisplaySettings.h"
#include "maps/ui/MapViewport.h"
#include "shell/ui/CPageView.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <memory>
#include <vector>

class CFendixDoc;
class CGoToTarget;
class CMapDecoder;
class CMapOverlay;
class COverlayImage;
class MapGestures;
class QMenu;
class QScrollBar;
class QToolButton;

// One of the five map pages: the current map of its catalogue drawn at the view's zoom, following
// the GPS position (the position at the centre, or in the lower third in perspective). A finger
// drag pans and stops following; pinch, wheel and the +/- buttons zoom around the touch point (the
// position while following); a double tap zooms in; a long press or right click opens the
// calibration menu. The map that fits the shown spot best is chosen at every redraw. Images decode
// on a worker thread; "Load <name>" shows meanwhile. Each page keeps its own settings key.
class CMapView : public CPageView, public CMapViewHost {
    Q_OBJECT
public:
    // Scales a finger cannot leave: metres per screen pixel.
    static constexpr double kFinestScale = 0.05;
    static constexpr double kCoarsestScale = 100000.0;

    // `instance` 0..4: the pages "Kartenanzeige" .. "Kartenanzeige5".
    CMapView(const CFendixDoc& doc, int instance, QWidget* parent = nullptr);
    ~CMapView() override;

    // CPageView
    void OnUpdate(uint16_t hint) override;
    bool OnCommand(PageCommand command) override;
    QString PageTitle() const override { return m_strTitle; }
    void DropCachedData() override;

    // One frame into `painter` (the widget's paint, and offscreen frames).
    void Render(QPainter& painter);
    // Drawn from now on, unless the page's setting named by the overlay says it is switched off.
    void AddOverlay(std::unique_ptr<CMapOverlay> overlay);
    size_t OverlayCount() const { return m_overlays.size(); }
    CMapOverlay& Overlay(size_t index) const { return *m_overlays[index].m_pOverlay; }
    bool IsOverlayShown(size_t index) const { return m_overlays[index].m_bShown; }
    // Switches one overlay on or off and writes it at once.
    void SetOverlayShown(size_t index, bool shown);
    // What an overlay draws changed elsewhere (on another page, by a load): drawn anew.
    void OverlaysChanged();
    // Waits for the overlays' image being drawn, so that the next frame shows them all (offscreen).
    void FinishOverlays();

    const MapViewport& Viewport() const { return m_viewport; }
    CMapCatalogue& Catalogue() { return m_catalogue; }
    const MapDisplaySettings& DisplaySettings() const { return m_settings; }
    QString StatusText() const { return m_strStatus; }
    bool IsFollowing() const { return m_bFollowing; }
    void SetFollowing(bool follow);
    // The view's state brought up to date for its size, map and settings (Render does it too).
    void UpdateViewport();

    // What the user does, from the gestures, the buttons and the menus.
    void ZoomAt(QPointF at, double factor);
    void PanBy(QPointF from, QPointF to);
    void OpenMapFile(const QString& path);
    void SetShowMap(bool show);
    void ToggleAutoLoadNext();
    void SetShowOverview(bool show);
    bool ShowsOverview() const { return m_bShowOverview; }
    void SetDrawCalibrationPoints(bool draw);
    bool DrawsCalibrationPoints() const { return m_bDrawCalibrationPoints; }
    // Changes one display setting and writes it at once.
    void ChangeDisplaySettings(const MapDisplaySettings& settings);
    // The folder the file chooser starts in.
    QString MapFolder() const;

    // Calibration of the current map; the pixel is the map pixel under `screen`.
    std::optional<Point> MapPixelAt(QPointF screen) const;
    void SetCalibrationPoint(int slot, Point pixel, double lon, double lat);
    void DeleteCalibrationPoint(int slot);
    void SaveCalibration();
    // Places the current map over the extent of the positions recorded this run.
    void AutoCalibrate();
    // The next tap on another map page gives the position of point `slot`.
    void PickPositionOnNextTap(int slot, Point pixel);
    const CFendixDoc& Document() const { return m_doc; }
    // The GoTo page's target, a source of calibration points; none until the program gives it.
    void SetGoToTarget(const CGoToTarget* pTarget) { m_pGoToTarget = pTarget; }
    const CGoToTarget* GoToTarget() const { return m_pGoToTarget; }
    // The place last clicked in the navigation program, for "Position vom letzen MN Klick"; nothing
    // while none is known.
    using PositionSource = std::function<std::optional<GeoPosition>()>;
    void SetNavLastClick(PositionSource source) { m_navLastClick = std::move(source); }
    std::optional<GeoPosition> NavLastClick() const {
        return m_navLastClick ? m_navLastClick() : std::nullopt;
    }

    // CMapViewHost
    MapViewSpot ShownSpot() const override;
    QSize ScreenSize() const override;
    void RecomputeView() override;
    void DisplayMap(MapCalibration* map) override;
    void Repaint() override { update(); }
    void SetStatusText(const QString& text) override;
    void SetTitle(const QString& title) override;
    void ShowMessage(const QString& title, const QString& text) override;
    void FreeMemory() override { Q_EMIT memoryWanted(); }
    std::optional<QImage> DecodeImage(const QString& path) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void ReadSettings();
    void LoadCurrent(bool reloadCalibration);
    // The catalogue is about to be rebuilt: nothing of it may stay displayed.
    void BeforeRescan();
    void OnDecoded(const QString& path);
    void OnTapped(QPointF at);
    void ShowCalibrationMenu(QPointF at);
    void ShowPageMenu();
    bool OnImagePlane() const;
    double MapMetresPerPixel() const;
    void FollowFix();
    void StepTurn();
    void PlaceControls();
    void UpdateScrollBars();
    void OnScrolled();
    bool PickedPosition(QPointF at);
    // The calibration's state in a line or two: points, the largest back-conversion error, the scale.
    static QString CalibrationSummary(const MapCalibration& map);
    void DrawMap(QPainter& painter);
    QString StatusLines() const;

    const CFendixDoc& m_doc;
    const CGoToTarget* m_pGoToTarget = nullptr;
    PositionSource m_navLastClick;
    int m_nInstance;
    CMapCatalogue m_catalogue;
    CMapDecoder* m_pDecoder;
    MapGestures* m_pGestures;
    MapViewport m_viewport;
    MapDisplaySettings m_settings;
    struct ShownOverlay {
        std::unique_ptr<CMapOverlay> m_pOverlay;
        bool m_bShown = true;
    };
    std::vector<ShownOverlay> m_overlays;
    COverlayImage* m_pOverlayImage;

    MapCalibration* m_pDisplayed = nullptr; // the map whose image is drawn
    MapCalibration* m_pPrevious = nullptr;  // the one before: its image is kept for a quick way back
    QImage m_preview;                       // a reduced image of the current map while it decodes
    QString m_strPreviewPath;
    bool m_bPendingReload = false; // the load waiting for its image reloads the calibration
    bool m_bAwaitingImage = false;

    QPointF m_geoCentre;   // (lon, lat) shown at the anchor
    QPointF m_imageCentre; // the image pixel shown there while the map has no calibration
    bool m_bImagePlane = false;
    bool m_bFollowing = true;
    double m_dShownRotation = 0.0; // degrees; turns smoothly towards the course
    QTimer m_turnTimer;
    QElapsedTimer m_turnClock;

    QString m_strStatus;          // the catalogue's ("Load <name>", "Error while loading <name>")
    QString m_strCalibrationInfo; // after a calibration step, until the next tap
    QString m_strTitle;
    bool m_bShowOverview = false;
    bool m_bDrawCalibrationPoints = false;
    bool m_bOutOfMemory = false;
    QImage m_frame;

    QToolButton* m_pFollowButton;
    QToolButton* m_pZoomIn;
    QToolButton* m_pZoomOut;
    QScrollBar* m_pHorizontal;
    QScrollBar* m_pVertical;
};
