#include "maps/CMapCatalogue.h"

#include "maps/DistanceFromSpot.h"
#include "maps/MapCacheFile.h"
#include "maps/MapPaths.h"
#include "maps/MapSettings.h"
#include "maps/Truncate.h"
#include "platform/PhysicalMemory.h"
#include "settings/CIniFile.h"
#include "settings/CRegistryKey.h"

#include <QDirIterator>
#include <QFile>
#include <QThread>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

const QString kCacheFile = QStringLiteral("cache.ini");
constexpr size_t kGrowth = 1000; // the catalogue grows by this many slots

// Scores sort ascending; one that is not a number (a map whose fit failed) sorts last, so that the
// order stays a strict weak one.
bool scoreBefore(const std::unique_ptr<MapCalibration>& a, const std::unique_ptr<MapCalibration>& b) {
    const double x = a->Score(), y = b->Score();
    if (std::isnan(y)) return !std::isnan(x);
    return x < y;
}

// The zoom is a float: a rescaled zoom beyond its range becomes infinite rather than undefined.
float narrowZoom(double zoom) {
    if (std::abs(zoom) > std::numeric_limits<float>::max()) return zoom > 0 ? HUGE_VALF : -HUGE_VALF;
    return static_cast<float>(zoom);
}

} // namespace

CMapCatalogue::CMapCatalogue(CMapViewHost& host, int instance)
    : m_host(host), m_nInstance(instance), m_freeMemory(availablePhysicalMemory) {}

CMapCatalogue::~CMapCatalogue() = default;

QString CMapCatalogue::SettingsPath() const {
    return MapSettings::KeyPath(m_nInstance);
}

void CMapCatalogue::ReadSettings() {
    CRegistryKey key(SettingsPath());
    m_strMapFile = readSetting(key, MapSettings::kLoadedMap);
    m_bShowMap = readSetting(key, MapSettings::kShowMap) != 0;
    m_bAutoLoadNext = readSetting(key, MapSettings::kAutoLoadNext) != 0;
}

void CMapCatalogue::Append(std::unique_ptr<MapCalibration> map) {
    if (m_maps.size() == m_maps.capacity()) m_maps.reserve(m_maps.capacity() + kGrowth);
    m_maps.push_back(std::move(map));
}

void CMapCatalogue::TakeScanned(std::unique_ptr<MapCalibration> map) {
    JoinUnion(*map);
    // The current map by its image's name without folder and extension, case and all.
    if (MapPaths::BaseName(map->MapFile()) == MapPaths::BaseName(m_strMapFile)) m_pCurrentMap = map.get();
    Append(std::move(map));
}

void CMapCatalogue::ScanMaps() {
    m_pCurrentMap = nullptr;
    m_maps.clear();
    if (!m_bShowMap || m_strMapFile.isEmpty()) return;
    const QString folder = MapPaths::DirectoryPart(m_strMapFile);
    m_dUnionMinLong = m_dUnionMaxLong = m_dUnionMinLat = m_dUnionMaxLat = 0.0;
    const auto take = [this](std::unique_ptr<MapCalibration> map) { TakeScanned(std::move(map)); };
    CIniFile cache;
    if (cache.Load(folder + kCacheFile)) {
        MapCacheFile::Read(cache, folder, take);
    } else {
        ScanCalibrationFiles(folder);
        MapCacheFile::Write(folder + kCacheFile, m_maps);
    }
    UpdateOverview();
}

void CMapCatalogue::ScanCalibrationFiles(const QString& folder) {
    // In the order the file system lists them; "*.kal" matches without regard to case, as it did
    // on the handheld.
    QDirIterator files(folder.isEmpty() ? QStringLiteral(".") : folder, {QStringLiteral("*.kal")},
                       QDir::Files);
    while (files.hasNext()) {
        files.next();
        auto map = std::make_unique<MapCalibration>();
        if (map->LoadCalibration(folder + files.fileName())) TakeScanned(std::move(map));
    }
}

void CMapCatalogue::JoinUnion(const MapCalibration& map) {
    // The first map seeds the box; the test is whether the minimum longitude is still exactly 0.0.
    if (m_dUnionMinLong == 0.0) {
        m_dUnionMinLong = map.MinLong(), m_dUnionMaxLong = map.MaxLong();
        m_dUnionMinLat = map.MinLat(), m_dUnionMaxLat = map.MaxLat();
        return;
    }
    m_dUnionMinLong = std::min(m_dUnionMinLong, map.MinLong());
    m_dUnionMaxLong = std::max(m_dUnionMaxLong, map.MaxLong());
    m_dUnionMinLat = std::min(m_dUnionMinLat, map.MinLat());
    m_dUnionMaxLat = std::max(m_dUnionMaxLat, map.MaxLat());
}

void CMapCatalogue::UpdateOverview() {
    MapCalibration overview;
    overview.CreateBlank(kOverviewPixels, kOverviewPixels);
    overview.AutoCalibrate(m_dUnionMinLong, m_dUnionMaxLong, m_dUnionMinLat, m_dUnionMaxLat, kOverviewFactor);
    m_overview = overview.GeoToPixelMatrix();
}

void CMapCatalogue::SelectBestMap() {
    if (!m_bAutoLoadNext) return;
    const MapViewSpot spot = m_host.ShownSpot();
    // Without a client rectangle the current map's scale is wanted (with no map at all, the finest).
    const double wanted = spot.metresPerPixel.value_or(m_pCurrentMap ? m_pCurrentMap->MetersPerPixel() : 0.0);
    if (!m_pCurrentMap && m_maps.empty()) {
        LoadCurrentMap(false);
        return;
    }
    const CDistanceFromSpot fromSpot(spot.dLong, spot.dLat);
    for (const auto& map : m_maps) {
        const MapCalibration::SelectionCentre& centre = map->CentreForSelection();
        map->SetScore(fromSpot.Km(centre.dLong, centre.dLat, centre.dSinColat, centre.dCosColat) +
                      std::abs(map->MetersPerPixel() - wanted) * 100.0);
    }
    SortByScore();
    const auto containing = std::find_if(
        m_maps.begin(), m_maps.end(), [&](const auto& map) { return map->Contains(spot.dLong, spot.dLat); });
    if (containing != m_maps.end()) std::rotate(m_maps.begin(), containing, containing + 1);

    MapCalibration* best = m_maps.front().get();
    if (best == m_pCurrentMap) return;
    if (m_pCurrentMap)
        m_fZoom = narrowZoom(m_fZoom / m_pCurrentMap->MetersPerPixel() * best->MetersPerPixel());
    m_pCurrentMap = best;
    m_host.RecomputeView();
    // A map still decoding is shown when the view has it; the others keep their images meanwhile.
    if (!best->HasImage() && !best->MapFile().isEmpty() && RequestMapImage(*best) == ImageLoad::Failed) {
        for (const auto& map : m_maps)
            UnloadImage(*map);
        RequestMapImage(*best);
    }
    if (best->HasImage()) m_host.DisplayMap(best);
    m_strMapFile = best->MapFile();
    CRegistryKey key(SettingsPath());
    writeSetting(key, MapSettings::kLoadedMap, m_strMapFile);
    UpdateTitle();
}

// The catalogue is still sorted from the last redraw but for the map moved to the front, and the
// spot has moved little: insertion sort finishes in about one pass. A large move falls back to the
// full sort once the insertions grow costly.
void CMapCatalogue::SortByScore() {
    const size_t limit = 16 * m_maps.size() + 64;
    size_t moves = 0;
    for (size_t i = 1; i < m_maps.size() && moves <= limit; ++i) {
        for (size_t j = i; j > 0 && scoreBefore(m_maps[j], m_maps[j - 1]) && moves <= limit; --j, ++moves)
            std::swap(m_maps[j], m_maps[j - 1]);
    }
    if (moves > limit) std::sort(m_maps.begin(), m_maps.end(), scoreBefore);
}

void CMapCatalogue::ToggleAutoLoadNext() {
    m_bAutoLoadNext = !m_bAutoLoadNext;
    CRegistryKey key(SettingsPath());
    writeSetting(key, MapSettings::kAutoLoadNext, m_bAutoLoadNext ? 1 : 0);
    WaitForIdleDrawing();
    ScanMaps();
    SelectBestMap();
    LoadCurrentMap(true);
}

void CMapCatalogue::OpenMap(const QString& path) {
    m_strMapFile = path;
    m_host.RestartTimer();
    m_bShowMap = true;
    CRegistryKey key(SettingsPath());
    writeSetting(key, MapSettings::kShowMap, 1);
    writeSetting(key, MapSettings::kLoadedMap, path);
    QFile::remove(MapPaths::DirectoryPart(path) + kCacheFile);
    ScanMaps();
    const auto chosen =
        std::find_if(m_maps.begin(), m_maps.end(), [&](const auto& map) { return map->MapFile() == path; });
    m_pCurrentMap = chosen == m_maps.end() ? nullptr : chosen->get();
    LoadCurrentMap(true);
    m_host.RecomputeView();
}

void CMapCatalogue::WaitForIdleDrawing() const {
    while (m_host.IsDrawing())
        QThread::msleep(100);
}

QString CMapCatalogue::MapInfoText() const {
    QString text;
    for (const auto& map : m_maps) {
        if (!map->HasImage()) continue;
        text += QStringLiteral("%1: %2*%3 %4\n")
                    .arg(MapPaths::FileNamePart(map->MapFile()))
                    .arg(map->MapSize().cx)
                    .arg(map->MapSize().cy)
                    .arg(TruncateToInt32(map->MetersPerPixel()));
    }
    return text;
}

void CMapCatalogue::ShowMapInfo() {
    const QString text = MapInfoText();
    if (!text.isEmpty()) m_host.ShowMessage(QStringLiteral("Karteninformationen"), text);
}

QString CMapCatalogue::TitleFor(const QString& mapFile) {
    const QString name = MapPaths::FileNamePart(mapFile);
    return name.isEmpty() ? QStringLiteral("Tarvik Map") : name;
}

void CMapCatalogue::UpdateTitle() {
    m_host.SetTitle(TitleFor(m_strMapFile));
}
