#include "maps/ui/CMapView.h"

#include "gps/CFendixDoc.h"
#include "maps/MapPaths.h"
#include "maps/MapSettings.h"
#include "maps/ui/CMapDecoder.h"
#include "maps/ui/CMapOverlay.h"
#include "maps/ui/COverlayImage.h"
#include "maps/ui/MapGestures.h"
#include "maps/ui/MapPainting.h"
#include "nav/GeoSphere.h"
#include "platform/DeviceRoot.h"
#include "platform/PhysicalMemory.h"
#include "settings/CRegistryKey.h"

#include <QMessageBox>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>
#include <cmath>

namespace {

// How long the turned map takes to follow a change of course by about two thirds (seconds).
constexpr double kTurnSeconds = 0.3;

bool isCalibrated(const MapCalibration& map) {
    return map.PointCount() >= 2 && map.Verify();
}

QToolButton* makeButton(QWidget* parent, const QString& text, const QString& tip) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setToolTip(tip);
    button->setFocusPolicy(Qt::NoFocus);
    button->setStyleSheet(
        QStringLiteral("QToolButton { background: rgba(255,255,255,215); border: 1px solid #777;"
                       " border-radius: 6px; font-weight: bold; }"
                       "QToolButton:checked { background: rgba(160,200,255,230); }"));
    return button;
}

// Cross hairs round a dot: the position kept in the middle.
QIcon followIcon() {
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(40, 40, 40), 5));
    painter.drawEllipse(QPointF(32, 32), 18, 18);
    for (const QLineF& line :
         {QLineF(32, 2, 32, 14), QLineF(32, 50, 32, 62), QLineF(2, 32, 14, 32), QLineF(50, 32, 62, 32)})
        painter.drawLine(line);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(220, 30, 30));
    painter.drawEllipse(QPointF(32, 32), 7, 7);
    return QIcon(pixmap);
}

} // namespace

CMapView::CMapView(const CFendixDoc& doc, int instance, QWidget* parent)
    : CPageView(parent), m_doc(doc), m_nInstance(instance), m_catalogue(*this, instance) {
    setAttribute(Qt::WA_AcceptTouchEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    m_pDecoder = new CMapDecoder(this);
    m_pOverlayImage = new COverlayImage(this);
    connect(m_pOverlayImage, &COverlayImage::ready, this, qOverload<>(&CMapView::update));
    connect(m_pDecoder, &CMapDecoder::decoded, this, &CMapView::OnDecoded);
    connect(m_pDecoder, &CMapDecoder::preview, this, [this](const QString& path, const QImage& image) {
        const MapCalibration* map = m_catalogue.CurrentMap();
        if (!map || map->MapFile() != path || map->HasImage()) return;
        m_preview = image, m_strPreviewPath = path;
        update();
    });
    // What the decoder holds is handed over, not loaded again: it counts as free for the budget.
    m_catalogue.SetFreeMemorySource([this] { return availablePhysicalMemory() + m_pDecoder->HeldBytes(); });

    m_pGestures = new MapGestures(std::max(8.0, logicalDpiX() / 12.0), this);
    connect(m_pGestures, &MapGestures::dragged, this, &CMapView::PanBy);
    connect(m_pGestures, &MapGestures::tapped, this, &CMapView::OnTapped);
    connect(m_pGestures, &MapGestures::doubleTapped, this, [this](QPointF at) { ZoomAt(at, 2.0); });
    connect(m_pGestures, &MapGestures::longPressed, this, &CMapView::ShowCalibrationMenu);
    connect(m_pGestures, &MapGestures::pinched, this, [this](QPointF centre, double factor, QPointF from) {
        if (!m_bFollowing) PanBy(from, centre);
        ZoomAt(centre, factor);
    });

    m_pFollowButton = makeButton(this, QString(), QStringLiteral("Verfolge aktuelle Position"));
    m_pFollowButton->setIcon(followIcon());
    m_pFollowButton->setCheckable(true);
    connect(m_pFollowButton, &QToolButton::clicked, this, [this](bool on) { SetFollowing(on); });
    m_pZoomIn = makeButton(this, QStringLiteral("+"), QStringLiteral("Vergrößern"));
    connect(m_pZoomIn, &QToolButton::clicked, this, [this] { ZoomAt(m_viewport.Anchor(), 2.0); });
    m_pZoomOut = makeButton(this, QStringLiteral("−"), QStringLiteral("Verkleinern"));
    connect(m_pZoomOut, &QToolButton::clicked, this, [this] { ZoomAt(m_viewport.Anchor(), 0.5); });
    m_pHorizontal = new QScrollBar(Qt::Horizontal, this);
    m_pVertical = new QScrollBar(Qt::Vertical, this);
    for (QScrollBar* bar : {m_pHorizontal, m_pVertical})
        connect(bar, &QScrollBar::actionTriggered, this,
                [this] { QTimer::singleShot(0, this, &CMapView::OnScrolled); });

    m_turnTimer.setInterval(16);
    connect(&m_turnTimer, &QTimer::timeout, this, &CMapView::StepTurn);

    const GpsFix& fix = m_doc.Fix();
    m_geoCentre = QPointF(fix.m_dPosLong, fix.m_dPosLat);
    ReadSettings();
    SetFollowing(true);
}

CMapView::~CMapView() = default;

void CMapView::ReadSettings() {
    m_catalogue.ReadSettings();
    // A map named by its path on the device ("/My Documents/Karten/x.png") lies in the device root.
    if (!m_catalogue.MapFile().isEmpty())
        m_catalogue.SetMapFile(DeviceRoot::current().hostPath(m_catalogue.MapFile()));
    m_settings = MapDisplaySettings::Read(m_nInstance, ScreenSize());
    BeforeRescan();
    m_catalogue.ScanMaps();
    LoadCurrent(true);
    PlaceControls();
}

QString CMapView::MapFolder() const {
    if (!m_catalogue.MapFile().isEmpty()) return MapPaths::DirectoryPart(m_catalogue.MapFile());
    CRegistryKey key(MapSettings::KeyPath(m_nInstance));
    return DeviceRoot::current().hostPath(readSetting(key, MapSettings::kMapPath));
}

void CMapView::LoadCurrent(bool reloadCalibration) {
    m_bPendingReload = m_bPendingReload || reloadCalibration;
    m_bAwaitingImage = false;
    m_catalogue.LoadCurrentMap(m_bPendingReload);
    if (!m_bAwaitingImage) m_bPendingReload = false;
    update();
}

void CMapView::BeforeRescan() {
    m_pDisplayed = m_pPrevious = nullptr;
    m_preview = QImage();
    m_pDecoder->Forget();
}

std::optional<QImage> CMapView::DecodeImage(const QString& path) {
    std::optional<QImage> image = m_pDecoder->Take(path);
    if (!image) m_bAwaitingImage = true;
    return image;
}

void CMapView::OnDecoded(const QString& path) {
    const MapCalibration* map = m_catalogue.CurrentMap();
    if (map && map->MapFile() == path && !map->HasImage()) {
        LoadCurrent(m_bPendingReload);
        return;
    }
    m_pDecoder->Take(path); // no longer wanted: let it go
}

void CMapView::DisplayMap(MapCalibration* map) {
    if (map == m_pDisplayed) return;
    // Two images at most: the one shown and the one before, for a quick way back over a map edge.
    if (m_pPrevious && m_pPrevious != map) m_pPrevious->UnloadImage();
    m_pPrevious = m_pDisplayed;
    m_pDisplayed = map;
    if (map && map->HasImage()) m_preview = QImage();
    m_catalogue.SetBusy(false);
    update();
}

void CMapView::DropCachedData() {
    BeforeRescan();
    for (const auto& map : m_catalogue.Maps())
        map->UnloadImage();
    m_frame = QImage();
    m_pOverlayImage->Drop();
}

void CMapView::showEvent(QShowEvent* event) {
    CPageView::showEvent(event);
    for (const ShownOverlay& overlay : m_overlays)
        overlay.m_pOverlay->ReadSettings(); // changed on other pages meanwhile
    m_pOverlayImage->Invalidate();
    // Memory pressure may have taken the image while the page was hidden.
    const MapCalibration* map = m_catalogue.CurrentMap();
    if (map && m_catalogue.ShowMap() && !map->HasImage() && !map->MapFile().isEmpty()) LoadCurrent(false);
}

void CMapView::SetStatusText(const QString& text) {
    m_strStatus = text;
    update();
}

void CMapView::SetTitle(const QString& title) {
    if (title == m_strTitle) return;
    m_strTitle = title;
    Q_EMIT titleChanged();
}

void CMapView::ShowMessage(const QString& title, const QString& text) {
    auto* box = new QMessageBox(QMessageBox::Information, title, text, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

QSize CMapView::ScreenSize() const {
    const QScreen* shown = screen();
    return shown ? shown->size() : QSize(240, 320);
}

MapViewSpot CMapView::ShownSpot() const {
    MapViewSpot spot{m_geoCentre.x(), m_geoCentre.y(), std::nullopt};
    const MapViewport flat = m_viewport.Flat();
    if (flat.Size().isEmpty()) return spot;
    const auto left = flat.FromScreen(QPointF(0, 0));
    const auto right = flat.FromScreen(QPointF(flat.Size().width(), 0));
    if (left && right)
        spot.metresPerPixel =
            GeoDistance(left->x(), left->y(), right->x(), right->y()) * 1000.0 / flat.Size().width();
    return spot;
}

bool CMapView::OnImagePlane() const {
    const MapCalibration* map = m_catalogue.CurrentMap();
    return map && m_catalogue.ShowMap() && map->HasImage() && !isCalibrated(*map);
}

double CMapView::MapMetresPerPixel() const {
    const MapCalibration* map = m_catalogue.CurrentMap();
    const double mpp = map && isCalibrated(*map) ? map->MetersPerPixel() : 1.0;
    return std::isfinite(mpp) && mpp > 0 ? mpp : 1.0;
}

void CMapView::RecomputeView() {
    const MapCalibration* map = m_catalogue.CurrentMap();
    const bool imagePlane = OnImagePlane();
    if (imagePlane && !m_bImagePlane) {
        m_imageCentre = QPointF(map->MapSize().cx / 2.0, map->MapSize().cy / 2.0);
    } else if (!imagePlane && m_bImagePlane && map && isCalibrated(*map)) {
        // Just calibrated: the same spot of the image stays in view.
        const double in[3] = {m_imageCentre.x(), m_imageCentre.y(), 1.0};
        double out[3];
        map->PixelToGeoMatrix().MultiplyVector(in, out);
        m_geoCentre = QPointF(out[0] / out[2], out[1] / out[2]);
    }
    m_bImagePlane = imagePlane;
    update();
}

void CMapView::UpdateViewport() {
    if (OnImagePlane() != m_bImagePlane) RecomputeView();
    m_viewport.SetSize(size());
    const double zoom = m_catalogue.Zoom() > 0 ? m_catalogue.Zoom() : 1.0;
    if (m_bImagePlane) {
        m_viewport.SetImageCentre(m_imageCentre);
        m_viewport.SetScale(1.0 / zoom);
        m_viewport.SetRotation(0.0);
        m_viewport.SetPerspective(0.0);
        return;
    }
    m_viewport.SetGeoCentre(m_geoCentre.x(), m_geoCentre.y());
    m_viewport.SetScale(MapMetresPerPixel() / zoom);
    m_viewport.SetRotation(m_settings.m_bTurnMap ? m_dShownRotation : 0.0);
    m_viewport.SetPerspective(m_settings.m_bShowPerspective ? std::max(50, m_settings.m_nPerspective) : 0.0);
}

void CMapView::OnUpdate(uint16_t) {
    if (m_bFollowing) FollowFix();
    if (m_settings.m_bTurnMap && !m_turnTimer.isActive()) {
        m_turnClock.start();
        m_turnTimer.start();
    }
    update();
}

void CMapView::FollowFix() {
    const GpsFix& fix = m_doc.Fix();
    m_geoCentre = QPointF(fix.m_dPosLong, fix.m_dPosLat);
}

void CMapView::StepTurn() {
    const double target = m_doc.Fix().m_fCourse;
    const double delta = std::remainder(target - m_dShownRotation, 360.0);
    const double seconds = m_turnClock.restart() / 1000.0;
    if (std::abs(delta) < 0.05 || !m_settings.m_bTurnMap) {
        m_dShownRotation = m_settings.m_bTurnMap ? target : 0.0;
        m_turnTimer.stop();
    } else {
        m_dShownRotation += delta * (1.0 - std::exp(-seconds / kTurnSeconds));
    }
    m_dShownRotation = std::fmod(m_dShownRotation + 360.0, 360.0);
    update();
}

void CMapView::SetFollowing(bool follow) {
    m_bFollowing = follow;
    m_pFollowButton->setChecked(follow);
    if (follow) FollowFix();
    update();
}

void CMapView::ZoomAt(QPointF at, double factor) {
    UpdateViewport();
    if (m_bFollowing && !m_bImagePlane) at = m_viewport.Anchor(); // the position stays where it is
    const double finest = m_bImagePlane ? 1.0 / 64 : kFinestScale;
    const double coarsest = m_bImagePlane ? 64.0 : kCoarsestScale;
    const double scale = m_viewport.Scale();
    factor = std::clamp(factor, scale / coarsest, scale / finest);
    if (!m_viewport.ZoomAround(at, factor)) return;
    (m_bImagePlane ? m_imageCentre : m_geoCentre) = m_viewport.Centre();
    m_catalogue.SetZoom(float(m_catalogue.Zoom() * factor));
    update();
}

void CMapView::PanBy(QPointF from, QPointF to) {
    UpdateViewport();
    if (!m_viewport.Pan(from, to)) return;
    if (m_bImagePlane) {
        m_imageCentre = m_viewport.Centre();
    } else {
        if (m_bFollowing) SetFollowing(false);
        m_geoCentre = m_viewport.Centre();
    }
    update();
}

void CMapView::AddOverlay(std::unique_ptr<CMapOverlay> overlay) {
    CRegistryKey key(MapSettings::KeyPath(m_nInstance));
    const bool shown = readSetting(key, Setting<int32_t>{overlay->SettingName(), 1, false}) != 0;
    overlay->ReadSettings();
    m_overlays.push_back({std::move(overlay), shown});
    OverlaysChanged();
}

void CMapView::OverlaysChanged() {
    m_pOverlayImage->Invalidate();
    update();
}

void CMapView::FinishOverlays() {
    m_pOverlayImage->Finish();
}

void CMapView::SetOverlayShown(size_t index, bool shown) {
    ShownOverlay& overlay = m_overlays.at(index);
    overlay.m_bShown = shown;
    CRegistryKey key(MapSettings::KeyPath(m_nInstance));
    writeSetting(key, Setting<int32_t>{overlay.m_pOverlay->SettingName(), 1, false}, shown ? 1 : 0);
    OverlaysChanged();
}

void CMapView::OpenMapFile(const QString& path) {
    BeforeRescan();
    m_bPendingReload = true;
    m_bAwaitingImage = false;
    m_catalogue.OpenMap(path);
    if (!m_bAwaitingImage) m_bPendingReload = false;
    update();
}

void CMapView::SetShowMap(bool show) {
    CRegistryKey key(MapSettings::KeyPath(m_nInstance));
    writeSetting(key, MapSettings::kShowMap, show ? 1 : 0);
    m_catalogue.SetShowMap(show);
    BeforeRescan();
    m_catalogue.ScanMaps();
    LoadCurrent(true);
}

void CMapView::ToggleAutoLoadNext() {
    BeforeRescan();
    m_bPendingReload = true;
    m_bAwaitingImage = false;
    m_catalogue.ToggleAutoLoadNext();
    if (!m_bAwaitingImage) m_bPendingReload = false;
    update();
}

void CMapView::SetShowOverview(bool show) {
    m_bShowOverview = show;
    update();
}

void CMapView::SetDrawCalibrationPoints(bool draw) {
    m_bDrawCalibrationPoints = draw;
    update();
}

void CMapView::ChangeDisplaySettings(const MapDisplaySettings& settings) {
    namespace S = MapSettings;
    CRegistryKey key(S::KeyPath(m_nInstance));
    const MapDisplaySettings& old = m_settings;
    if (settings.m_bTurnMap != old.m_bTurnMap) writeSetting(key, S::kTurnMap, settings.m_bTurnMap ? 1 : 0);
    if (settings.m_bShowPerspective != old.m_bShowPerspective)
        writeSetting(key, S::kShowPerspective, settings.m_bShowPerspective ? 1 : 0);
    if (settings.m_nPerspective != old.m_nPerspective)
        writeSetting(key, S::kPerspective, settings.m_nPerspective);
    if (settings.m_bMapBar != old.m_bMapBar) writeSetting(key, S::kMapBar, settings.m_bMapBar ? 1 : 0);
    if (settings.m_nScaleType != old.m_nScaleType) writeSetting(key, S::kScaleType, settings.m_nScaleType);
    if (settings.m_bShowScrollbar != old.m_bShowScrollbar)
        writeSetting(key, S::kShowScrollbarInMap, settings.m_bShowScrollbar ? 1 : 0);
    if (settings.m_colMeasurement != old.m_colMeasurement)
        writeSetting(key, S::kColMeasurement, int32_t(settings.m_colMeasurement));
    if (settings.m_colGraph != old.m_colGraph) writeSetting(key, S::kColGraph, int32_t(settings.m_colGraph));
    if (settings.m_bColoredGraph != old.m_bColoredGraph)
        writeSetting(key, S::kColoredGraph, settings.m_bColoredGraph ? 1 : 0);
    m_settings = settings;
    m_pOverlayImage->Invalidate(); // colours, and POIs hidden while turned
    if (m_settings.m_bTurnMap)
        OnUpdate(0);
    else
        m_dShownRotation = 0.0;
    PlaceControls();
    update();
}

void CMapView::resizeEvent(QResizeEvent* event) {
    CPageView::resizeEvent(event);
    PlaceControls();
}

void CMapView::PlaceControls() {
    const int side = std::clamp(std::min(width(), height()) / 7, 36, 64);
    const int bar = m_settings.m_bShowScrollbar ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 8 : 0;
    m_pHorizontal->setVisible(m_settings.m_bShowScrollbar);
    m_pVertical->setVisible(m_settings.m_bShowScrollbar);
    m_pHorizontal->setGeometry(0, height() - bar, width() - bar, bar);
    m_pVertical->setGeometry(width() - bar, 0, bar, height() - bar);
    const int x = width() - bar - side - 8;
    int y = height() / 2 - side * 3 / 2 - 8;
    for (QToolButton* button : {m_pFollowButton, m_pZoomIn, m_pZoomOut}) {
        button->setGeometry(x, y, side, side);
        QFont font = button->font();
        font.setPixelSize(side / 2);
        button->setFont(font);
        button->setIconSize(QSize(side * 2 / 3, side * 2 / 3));
        y += side + 8;
    }
}

void CMapView::UpdateScrollBars() {
    const MapCalibration* map = m_catalogue.CurrentMap();
    if (!m_settings.m_bShowScrollbar || !map) return;
    const QPointF pixel = m_viewport.MapToScreen(*map).inverted().map(m_viewport.Anchor());
    const QSignalBlocker blockH(m_pHorizontal), blockV(m_pVertical);
    m_pHorizontal->setRange(0, map->MapSize().cx);
    m_pVertical->setRange(0, map->MapSize().cy);
    m_pHorizontal->setPageStep(
        int(width() * m_viewport.Scale() / (m_bImagePlane ? 1.0 : MapMetresPerPixel())));
    m_pVertical->setPageStep(
        int(height() * m_viewport.Scale() / (m_bImagePlane ? 1.0 : MapMetresPerPixel())));
    m_pHorizontal->setValue(int(pixel.x()));
    m_pVertical->setValue(int(pixel.y()));
}

void CMapView::OnScrolled() {
    const MapCalibration* map = m_catalogue.CurrentMap();
    if (!map) return;
    UpdateViewport();
    const QPointF wanted(m_pHorizontal->sliderPosition(), m_pVertical->sliderPosition());
    const QPointF at = m_viewport.MapToScreen(*map).map(wanted);
    PanBy(at, m_viewport.Anchor());
}

void CMapView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_frame.size() != size()) {
        m_frame = QImage();
        m_frame = QImage(size(), QImage::Format_ARGB32_Premultiplied);
    }
    const bool outOfMemory = m_frame.isNull() && !size().isEmpty();
    if (outOfMemory) {
        painter.fillRect(rect(), Qt::white);
        MapPainting::DrawStatus(painter, rect(), QStringLiteral("Not enough memory to operate!"));
        // Once, and after this paint: freeing memory deletes other pages.
        if (!m_bOutOfMemory)
            QMetaObject::invokeMethod(
                this, [this] { Q_EMIT memoryWanted(); }, Qt::QueuedConnection);
    }
    m_bOutOfMemory = outOfMemory;
    if (outOfMemory) return;
    QPainter frame(&m_frame);
    Render(frame);
    frame.end();
    painter.drawImage(0, 0, m_frame);
}

void CMapView::Render(QPainter& painter) {
    UpdateViewport();
    if (!m_bImagePlane) {
        m_catalogue.SelectBestMap();
        UpdateViewport();
    }
    MapPainting::DrawGround(painter, m_viewport);
    DrawMap(painter);
    if (!m_bImagePlane) {
        std::vector<CMapOverlay*> shown;
        for (const ShownOverlay& overlay : m_overlays)
            if (overlay.m_bShown) shown.push_back(overlay.m_pOverlay.get());
        m_pOverlayImage->Paint(painter, m_viewport, shown);
        for (CMapOverlay* overlay : shown)
            overlay->PaintLive(painter, m_viewport);
    }
    const MapCalibration* map = m_catalogue.CurrentMap();
    if (m_bDrawCalibrationPoints && map && (m_bImagePlane || isCalibrated(*map)))
        MapPainting::DrawCalibrationPoints(painter, m_viewport, *map);
    const QRect area(QPoint(0, 0), size());
    if (!m_bImagePlane) {
        const GpsFix& fix = m_doc.Fix();
        const double marker = std::clamp(std::min(width(), height()) / 22.0, 9.0, 22.0);
        MapPainting::DrawPosition(painter, m_viewport.ToScreen(QPointF(fix.m_dPosLong, fix.m_dPosLat)),
                                  fix.m_fCourse - m_viewport.Rotation(), fix.hasFix(), marker);
        if (m_settings.m_bMapBar)
            MapPainting::DrawScale(painter, m_viewport, m_settings.m_nScaleType, logicalDpiX());
        if (m_bShowOverview && !m_catalogue.Maps().empty()) {
            const int side = std::min(width(), height()) / 3;
            MapPainting::DrawOverview(painter, m_catalogue, QPointF(fix.m_dPosLong, fix.m_dPosLat),
                                      QRect(8, height() - side - 8 - height() / 8, side, side));
        }
    }
    MapPainting::DrawStatus(painter, area, StatusLines());
    UpdateScrollBars();
}

void CMapView::DrawMap(QPainter& painter) {
    MapCalibration* current = m_catalogue.CurrentMap();
    // While the current map decodes, the map shown before stays (it fits the spot less well), or
    // the current one's reduced preview.
    const bool smooth = true;
    if (current && current->HasImage() && (m_bImagePlane || isCalibrated(*current))) {
        MapPainting::DrawMapImage(painter, m_viewport, *current, current->Image(), QTransform(), smooth);
        return;
    }
    if (!m_bImagePlane && m_pDisplayed && m_pDisplayed->HasImage() && isCalibrated(*m_pDisplayed))
        MapPainting::DrawMapImage(painter, m_viewport, *m_pDisplayed, m_pDisplayed->Image(), QTransform(),
                                  smooth);
    if (current && !m_preview.isNull() && m_strPreviewPath == current->MapFile() && isCalibrated(*current)) {
        const Size size = current->MapSize();
        MapPainting::DrawMapImage(
            painter, m_viewport, *current, m_preview,
            QTransform::fromScale(double(size.cx) / m_preview.width(), double(size.cy) / m_preview.height()),
            true);
    }
}
