#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

class CIniFile;
class MapCalibration;

// "cache.ini", the catalogue cache in the folder of the maps: one section "Map_<i>" per map (i from
// 0) with "Bitmap" (file name without folder), "Size" and, for each point j from 0, "Pixel_<j>",
// "Long_<j>" and "Lat_<j>". It is never checked against the folder.
namespace MapCacheFile {

// Each section of the cache from "Map_0" on, until the first without both "Bitmap" and "Size",
// becomes a map (folder + "Bitmap") handed to `take`, provided its points, read in order up to the
// first missing one, number at least two.
void Read(const CIniFile& cache, const QString& folder,
          const std::function<void(std::unique_ptr<MapCalibration>)>& take);

bool Write(const QString& cachePath, const std::vector<std::unique_ptr<MapCalibration>>& maps);

} // namespace MapCacheFile
