// Loading the images of the catalogue's maps within the memory budget.
#include "maps/CMapCatalogue.h"
#include "maps/MapImageLoader.h"
#include "settings/DevLog.h"

namespace {

// Two bytes a pixel and 1 MB to spare.
int64_t requiredBytes(int64_t width, int64_t height) {
    return (width * height + 524288) * 2;
}

bool fitsBudget(const QString& path, int64_t width, int64_t height, int64_t available) {
    const int64_t required = requiredBytes(width, height);
    if (available >= required) return true;
    devLog("Not enough memeory to load %s: dwAvailPhys: %d MB, dwMapSize: %d MB", path.toUtf8().constData(),
           int(available >> 20), int(required >> 20));
    return false;
}

} // namespace

CMapCatalogue::ImageLoad CMapCatalogue::RequestMapImage(MapCalibration& map) {
    UnloadImage(map);
    const QString& path = map.MapFile();
    const int64_t available = m_freeMemory();
    // Judged first on the size recorded for the map, then on the size in the image's header, which a
    // stale or forged ".kal" may understate.
    if (!fitsBudget(path, map.MapSize().cx, map.MapSize().cy, available)) return ImageLoad::Failed;
    const QSize header = ReadImageSize(path);
    if (header.isValid() && !fitsBudget(path, header.width(), header.height(), available))
        return ImageLoad::Failed;
    std::optional<QImage> image = m_host.DecodeImage(path);
    if (!image) return ImageLoad::Decoding;
    if (image->isNull()) return ImageLoad::Failed;
    image->convertTo(QImage::Format_RGB16); // the kept bitmap: two bytes a pixel, as the budget counts
    if (image->isNull()) return ImageLoad::Failed;
    map.SetImage(*image);
    map.SetMapSize(Size{image->width(), image->height()});
    return ImageLoad::Loaded;
}

bool CMapCatalogue::LoadCurrentMap(bool reloadCalibration) {
    m_bBusy = true;
    WaitForIdleDrawing();
    if (!m_pCurrentMap) {
        Append(std::make_unique<MapCalibration>(m_strMapFile));
        m_pCurrentMap = m_maps.back().get();
    }
    if (!m_bShowMap) {
        m_bUncalibrated = true;
        const QSize screen = m_host.ScreenSize();
        m_pCurrentMap->CreateBlank(screen.width(), screen.height());
        m_host.DisplayMap(m_pCurrentMap);
        return true;
    }
    m_host.SetStatusText(QStringLiteral("Load ") + m_strMapFile);
    ImageLoad load = RequestMapImage(*m_pCurrentMap);
    if (load == ImageLoad::Failed) {
        m_host.FreeMemory();
        load = RequestMapImage(*m_pCurrentMap);
    }
    if (load == ImageLoad::Decoding) return false;
    if (load == ImageLoad::Failed) {
        m_host.SetStatusText(QStringLiteral("Error while loading ") + m_strMapFile);
        UpdateTitle();
        m_host.Repaint();
        return false;
    }
    m_host.SetStatusText(QString());
    if (reloadCalibration) {
        m_host.ResetViewMatrix();
        m_bUncalibrated = !m_pCurrentMap->LoadCalibration();
    }
    m_host.RecomputeView();
    m_host.ResetViewMatrix();
    m_bBusy = true;
    m_host.NudgeViewPosition(0.001);
    m_host.DisplayMap(m_pCurrentMap);
    UpdateTitle();
    m_host.Repaint();
    return true;
}
