#pragma once

#include "nav/poi/PoiFile.h"

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

// The POI files the program knows, loaded from the enabled ones of the subkey POI. While LoadAllPois
// runs, it alone touches the files; the query and the pages wait until it has ended.
class PoiCollection {
public:
    static constexpr int kStartDelayMs = 500;

    // Waits `delayMs` (ended at once by `stop`), reads "PoiPath", marks every known file unused, takes
    // each file enabled in the subkey POI (known or new, with its icon) and loads them one after the
    // other, calling `progress` with the running total after each. Stops between files when `stop` is
    // requested. Unused files give back their points and icons. Returns the total of points.
    int LoadAllPois(std::stop_token stop, const std::function<void(int)>& progress,
                    int delayMs = kStartDelayMs);

    const std::vector<std::unique_ptr<PoiFile>>& files() const { return m_files; }
    std::vector<const PoiFile*> enabledFiles() const;

private:
    PoiFile& fileNamed(const QString& name);

    std::vector<std::unique_ptr<PoiFile>> m_files; // kept in place: hits point at them
};
