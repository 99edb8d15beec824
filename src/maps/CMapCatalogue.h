#pragma once

#include "maps/CMapViewHost.h"
#include "maps/CMatrix.h"
#include "maps/MapCalibration.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

// The catalogue of one map view: every calibrated map in the folder of the current map, kept in
// "cache.ini" there, the current map, the union of all maps' boxes with a 60 x 60 pixel overview
// over it, and the automatic choice of the map that best fits the shown position and scale. It runs
// on the thread of the map view; image decoding is serialised process-wide (MyLoadBitmap).
class CMapCatalogue {
public:
    static constexpr double kOverviewFactor = 0.7692307692307692; // 10/13
    static constexpr int kOverviewPixels = 60;

    // `instance` 0 is the first map view; N >= 1 keeps its settings under "...\Map<N>".
    explicit CMapCatalogue(CMapViewHost& host, int instance = 0);
    ~CMapCatalogue();

    // "LoadedMap", "ShowMap" and "AutoLoadNext" of this view.
    void ReadSettings();

    // The user opened `path`: it becomes the current map, "ShowMap" and "LoadedMap" are stored, the
    // cache is deleted and rebuilt, and the map is loaded with its calibration.
    void OpenMap(const QString& path);
    // Rebuilds the catalogue from "cache.ini", or from the ".kal" files (then writes the cache).
    void ScanMaps();
    // Loads the current map's image (and, when asked, its calibration); a blank screen-sized map
    // when no image is to be shown. False when the image cannot be loaded even after freeing memory,
    // and while it is still decoding ("Load <name>" stays in the status area).
    bool LoadCurrentMap(bool reloadCalibration);
    // Makes the best-scoring map for the view's spot current; the catalogue is left sorted best first.
    void SelectBestMap();
    void ToggleAutoLoadNext();
    // What became of a request for a map's image: loaded, failed, or still decoding on the view's
    // worker (the view repeats LoadCurrentMap when it is there).
    enum class ImageLoad { Loaded, Failed, Decoding };
    // Loads one map's image when (width x height + 524288) x 2 bytes are free, judged on the size
    // recorded for it before decoding.
    ImageLoad RequestMapImage(MapCalibration& map);
    bool LoadMapImage(MapCalibration& map) { return RequestMapImage(map) == ImageLoad::Loaded; }
    static void UnloadImage(MapCalibration& map) { map.UnloadImage(); }
    // "Karteninformationen": one line "name: width*height metres-per-pixel" per loaded map.
    void ShowMapInfo();
    QString MapInfoText() const;
    void UpdateTitle();
    // The title for a map file name: its file name part, "Tarvik Map" when that is empty.
    static QString TitleFor(const QString& mapFile);

    const std::vector<std::unique_ptr<MapCalibration>>& Maps() const { return m_maps; }
    MapCalibration* CurrentMap() const { return m_pCurrentMap; }
    const QString& MapFile() const { return m_strMapFile; }
    void SetMapFile(const QString& path) { m_strMapFile = path; }
    bool ShowMap() const { return m_bShowMap; }
    void SetShowMap(bool show) { m_bShowMap = show; }
    bool AutoLoadNext() const { return m_bAutoLoadNext; }
    void SetAutoLoadNext(bool automatic) { m_bAutoLoadNext = automatic; }
    bool IsUncalibrated() const { return m_bUncalibrated; }
    bool IsBusy() const { return m_bBusy; }
    void SetBusy(bool busy) { m_bBusy = busy; } // the view clears it when it has drawn the new map
    float Zoom() const { return m_fZoom; }
    void SetZoom(float zoom) { m_fZoom = zoom; }
    double UnionMinLong() const { return m_dUnionMinLong; }
    double UnionMaxLong() const { return m_dUnionMaxLong; }
    double UnionMinLat() const { return m_dUnionMinLat; }
    double UnionMaxLat() const { return m_dUnionMaxLat; }
    const CMatrix& OverviewMatrix() const { return m_overview; }

    // Where the free physical memory comes from (bytes); tests put in their own figure.
    void SetFreeMemorySource(std::function<int64_t()> source) { m_freeMemory = std::move(source); }

private:
    void Append(std::unique_ptr<MapCalibration> map);
    void TakeScanned(std::unique_ptr<MapCalibration> map);
    void ScanCalibrationFiles(const QString& folder);
    void JoinUnion(const MapCalibration& map);
    void UpdateOverview();
    void SortByScore();
    void WaitForIdleDrawing() const;
    QString SettingsPath() const;

    CMapViewHost& m_host;
    int m_nInstance;
    std::vector<std::unique_ptr<MapCalibration>> m_maps;
    MapCalibration* m_pCurrentMap = nullptr;
    QString m_strMapFile;
    double m_dUnionMinLong = 0.0, m_dUnionMaxLong = 0.0, m_dUnionMinLat = 0.0, m_dUnionMaxLat = 0.0;
    CMatrix m_overview = CMatrix::Identity(3);
    bool m_bUncalibrated = false;
    bool m_bBusy = false;
    float m_fZoom = 1.0f;
    bool m_bShowMap = false;
    bool m_bAutoLoadNext = true;
    std::function<int64_t()> m_freeMemory;
};
