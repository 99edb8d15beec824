#include "gps/TourStore.h"

#include "gps/RecordingSettings.h"
#include "gps/TourStatistics.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"

namespace {

QString nameOf(const char* pszName) {
    return QString::fromLatin1(pszName);
}

} // namespace

void TourStore::load(TourStatistics& stats) {
    CRegistryKey key;
    uint32_t nTourTime = 0;
    double dTour = 0;
    if (!key.ReadDword(nameOf(RecordingSettings::kTourTime), nTourTime) ||
        !key.ReadDouble(nameOf(RecordingSettings::kTour), dTour)) {
        reset(stats);
        return;
    }
    stats.m_nTourTime = static_cast<int32_t>(nTourTime);
    stats.m_dTourDistance = dTour;
}

void TourStore::save(const TourStatistics& stats) {
    CRegistryKey key;
    key.WriteDword(nameOf(RecordingSettings::kTourTime), static_cast<uint32_t>(stats.m_nTourTime));
    key.WriteDouble(nameOf(RecordingSettings::kTour), stats.m_dTourDistance);
}

void TourStore::reset(TourStatistics& stats) {
    stats.m_nTourTime = 0;
    stats.m_dTourDistance = 0.0;
    save(stats);
    CRegistryKey key;
    key.WriteDword(nameOf(RecordingSettings::kTourStart), static_cast<uint32_t>(m_clock.localNow()));
}

void TourStore::saveLastPosition(double lon, double lat) {
    CRegistryKey key;
    key.WriteFloat(nameOf(GpsSettings::kLastLong.pszName), static_cast<float>(lon));
    key.WriteFloat(nameOf(GpsSettings::kLastLat.pszName), static_cast<float>(lat));
}
