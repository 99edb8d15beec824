// Calibrating the current map from the map view: the pixel side is where the user opened the
// calibration menu, the geographic side comes from the menu.
#include "gps/CFendixDoc.h"
#include "maps/CalibrationQuality.h"
#include "maps/MapPaths.h"
#include "maps/ui/CMapView.h"

#include <QFile>
#include <QPointer>
#include <cmath>

namespace {

// "Nächster Klick auf Route": the page waiting for a position, its point and pixel. One for the
// program: the tap that answers comes from another map page.
struct PendingPick {
    QPointer<CMapView> target;
    int slot = 0;
    Point pixel;
};

PendingPick& pendingPick() {
    static PendingPick pick;
    return pick;
}

} // namespace

std::optional<Point> CMapView::MapPixelAt(QPointF screen) const {
    const MapCalibration* map = m_catalogue.CurrentMap();
    if (!map || !map->HasImage() || !m_catalogue.ShowMap()) return std::nullopt;
    bool invertible = false;
    const QPointF pixel = m_viewport.MapToScreen(*map).inverted(&invertible).map(screen);
    if (!invertible || !std::isfinite(pixel.x()) || !std::isfinite(pixel.y())) return std::nullopt;
    if (pixel.x() < 0 || pixel.y() < 0 || pixel.x() > map->MapSize().cx || pixel.y() > map->MapSize().cy)
        return std::nullopt;
    return Point{int32_t(std::lround(pixel.x())), int32_t(std::lround(pixel.y()))};
}

void CMapView::SetCalibrationPoint(int slot, Point pixel, double lon, double lat) {
    MapCalibration* map = m_catalogue.CurrentMap();
    if (!map) return;
    // How far the new point lies from the calibration so far tells a mistyped coordinate at once.
    QString before;
    if (map->PointCount() >= 2 && map->Verify()) {
        const PointResidual off = ResidualOf(*map, pixel, lon, lat);
        before = QStringLiteral("Punkt %1 weicht %2 Pixel (%3 m) von der bisherigen Kalibrierung ab\n")
                     .arg(std::min(slot, map->PointCount()) + 1)
                     .arg(std::hypot(off.dDxPixels, off.dDyPixels), 0, 'f', 1)
                     .arg(off.dMetres, 0, 'f', 1);
    }
    map->SetPoint(slot, pixel, lon, lat);
    m_strCalibrationInfo = before + CalibrationSummary(*map);
    RecomputeView();
}

void CMapView::DeleteCalibrationPoint(int slot) {
    MapCalibration* map = m_catalogue.CurrentMap();
    if (!map || !map->DeletePoint(slot)) return;
    m_strCalibrationInfo = CalibrationSummary(*map);
    RecomputeView();
}

QString CMapView::CalibrationSummary(const MapCalibration& map) {
    if (map.PointCount() < 2)
        return QStringLiteral("%1 Kalibrierungspunkt(e), mindestens 2 nötig").arg(map.PointCount());
    if (!map.Verify()) return QStringLiteral("Die Punkte ergeben keine gültige Kalibrierung");
    double worst = 0.0;
    for (const PointResidual& residual : AssessCalibration(map).residuals)
        worst = std::max(worst, std::hypot(residual.dDxPixels, residual.dDyPixels));
    return QStringLiteral("%1 Kalibrierungspunkte, Restfehler höchstens %2 Pixel, %3 m pro Pixel")
        .arg(map.PointCount())
        .arg(worst, 0, 'f', 2)
        .arg(map.MetersPerPixel(), 0, 'f', 2);
}

void CMapView::SaveCalibration() {
    MapCalibration* map = m_catalogue.CurrentMap();
    if (!map) return;
    if (!map->SaveCalibration()) {
        m_strCalibrationInfo =
            QStringLiteral("Kalibrierung nicht gespeichert: ") + MapPaths::CalibrationPathFor(map->MapFile());
        update();
        return;
    }
    map->ClearModified();
    // The catalogue's cache does not look at the files again; without it the next scan finds the map.
    QFile::remove(MapPaths::DirectoryPart(map->MapFile()) + QStringLiteral("cache.ini"));
    m_strCalibrationInfo = QStringLiteral("Kalibrierung gespeichert");
    update();
}

void CMapView::AutoCalibrate() {
    MapCalibration* map = m_catalogue.CurrentMap();
    const TourStatistics& stats = m_doc.Statistics();
    if (!map) return;
    if (stats.m_dMinLong == TourStatistics::kNoMinimum) {
        m_strCalibrationInfo = QStringLiteral("Noch keine Positionen aufgezeichnet");
        update();
        return;
    }
    map->AutoCalibrate(stats.m_dMinLong, stats.m_dMaxLong, stats.m_dMinLat, stats.m_dMaxLat, 1.5);
    m_strCalibrationInfo = CalibrationSummary(*map);
    RecomputeView();
}

void CMapView::PickPositionOnNextTap(int slot, Point pixel) {
    pendingPick() = PendingPick{this, slot, pixel};
    m_strCalibrationInfo =
        QStringLiteral("Tippen Sie auf einer anderen Kartenseite auf die Stelle von Punkt %1").arg(slot + 1);
    update();
}

bool CMapView::PickedPosition(QPointF at) {
    PendingPick& pick = pendingPick();
    if (!pick.target || pick.target == this) return false;
    const MapCalibration* map = m_catalogue.CurrentMap();
    const auto position = m_viewport.FromScreen(at);
    if (!map || !map->HasImage() || !position) return false;
    CMapView* target = pick.target;
    pick.target = nullptr;
    target->SetCalibrationPoint(pick.slot, pick.pixel, position->x(), position->y());
    update();
    return true;
}

QString CMapView::StatusLines() const {
    QStringList lines;
    if (!m_strStatus.isEmpty()) lines << m_strStatus;
    if (m_bImagePlane) lines << QStringLiteral("Karte ohne Kalibrierung: lange drücken zum Kalibrieren");
    if (!m_strCalibrationInfo.isEmpty()) lines << m_strCalibrationInfo;
    const PendingPick& pick = pendingPick();
    if (pick.target && pick.target != this)
        lines << QStringLiteral("Tippen übernimmt die Position für Punkt %1").arg(pick.slot + 1);
    return lines.join('\n');
}
