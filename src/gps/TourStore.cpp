#include "gps/TourStore.h"

#include "gps/GpsSettings.h"
#include "gps/RecordingSettings.h"
#include "gps/TourStatistics.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"

void TourStore::load(TourStatistics& stats) {
    CRegistryKey key;
    const std::optional<int32_t> tourTime = readStoredSetting(key, RecordingSettings::kTourTime);
    const std::optional<double> tour = readStoredSetting(key, RecordingSettings::kTour);
    if (!tourTime || !tour) {
        reset(stats);
        return;
    }
    stats.m_nTourTime = *tourTime;
    stats.m_dTourDistance = *tour;
}

void TourStore::save(const TourStatistics& stats) {
    if (m_bInMemory) return;
    CRegistryKey key;
    writeSetting(key, RecordingSettings::kTourTime, stats.m_nTourTime);
    writeSetting(key, RecordingSettings::kTour, stats.m_dTourDistance);
}

void TourStore::reset(TourStatistics& stats) {
    stats.m_nTourTime = RecordingSettings::kTourTime.m_default;
    stats.m_dTourDistance = RecordingSettings::kTour.m_default;
    save(stats);
    if (m_bInMemory) return;
    CRegistryKey key;
    writeSetting(key, RecordingSettings::kTourStart, static_cast<int32_t>(m_clock.localNow()));
}

void TourStore::saveLastPosition(double lon, double lat) {
    if (m_bInMemory) return;
    CRegistryKey key;
    writeSetting(key, GpsSettings::kLastLong, static_cast<float>(lon));
    writeSetting(key, GpsSettings::kLastLat, static_cast<float>(lat));
}
