#include "gps/PositionVerifier.h"

#include "gps/GpsFix.h"
#include "gps/RecordingSettings.h"
#include "gps/TourStatistics.h"
#include "gps/TourStore.h"
#include "nav/GeoSphere.h"
#include "settings/DevLog.h"

namespace {

// The tour is saved whenever the moving time of the tour passes a multiple of this (seconds).
constexpr int32_t kTourSaveMask = 511;
// Epochs without a receiver speed after which the derived speed would stand in for it.
constexpr int kEpochsBeforeDerivedSpeed = 6;

} // namespace

PositionVerifier::PositionVerifier(TourStatistics& stats, TourStore& tourStore)
    : m_stats(stats), m_tourStore(tourStore), m_nSpeedLimit(RecordingSettings::kSpeedLimit.m_default),
      m_nMaxBreakMin(RecordingSettings::kMaxBreakMin.m_default),
      m_nMinSpeedForAvr2(RecordingSettings::kMinSpeedForAvr2.m_default) {}

void PositionVerifier::loadSettings(CRegistryKey& key) {
    m_nSpeedLimit = readSetting(key, RecordingSettings::kSpeedLimit);
    m_nMaxBreakMin = readSetting(key, RecordingSettings::kMaxBreakMin);
    m_nMinSpeedForAvr2 = readSetting(key, RecordingSettings::kMinSpeedForAvr2);
}

void PositionVerifier::setLastPosition(double lon, double lat) {
    m_dLastLong = lon;
    m_dLastLat = lat;
}

void PositionVerifier::forgetPositions() {
    setLastPosition(0.0, 0.0);
}

uint8_t PositionVerifier::VerifyTimeAndPosition(GpsFix& fix) {
    if (m_dLastLong == 0.0) {
        setLastPosition(fix.m_dPosLong, fix.m_dPosLat);
        // The start point also starts the time line: otherwise the second fix after a start would
        // measure its step from the day-old start value and count as a break.
        fix.m_tPrevFixTime = fix.m_tFixTime;
        devLog("VerifyTimeAndPosition: m_dPosLong == 0");
        return 0;
    }
    const double km = GeoDistance(m_dLastLong, m_dLastLat, fix.m_dPosLong, fix.m_dPosLat);
    if (km < 0) {
        devLog("dDist<0)");
        return 1;
    }
    const int64_t nDiffTime = fix.m_tFixTime - fix.m_tPrevFixTime;
    const int64_t nBreakSeconds = int64_t{m_nMaxBreakMin} * 60;
    if (nDiffTime > nBreakSeconds || nDiffTime < 0) {
        devLog("nDiffTime (%lld) > m_nMaxBreakMin*60 || nDiffTime < 0 (%lld s, %d min)",
               static_cast<long long>(nDiffTime), static_cast<long long>(nBreakSeconds), m_nMaxBreakMin);
        fix.m_tPrevFixTime = fix.m_tFixTime;
        return 0;
    }
    if (nDiffTime == 0) return 1;
    const int32_t seconds = static_cast<int32_t>(nDiffTime);
    const float fSpeed = static_cast<float>(km / seconds * 3600.0);
    if (fSpeed > static_cast<float>(m_nSpeedLimit)) {
        m_dLastLong = 0.0;
        devLog("fSpeed(%f) > m_nSpeedLimit (%d)", static_cast<double>(fSpeed), m_nSpeedLimit);
        return 0;
    }
    takeSpeed(fix, fSpeed);
    addStep(fix, seconds, km);
    fix.m_tPrevFixTime = fix.m_tFixTime;
    setLastPosition(fix.m_dPosLong, fix.m_dPosLat);
    m_stats.noteExtremes(fix.m_dPosLong, fix.m_dPosLat, fix.m_fAltitude, fix.m_fHdop);
    m_gradient.addFix(km, fix.m_dPosLong, fix.m_dPosLat, fix.m_fAltitude, m_stats.m_fGradient);
    return 1;
}

// Kept as it has always worked: the counter is cleared right after it was raised, so it never
// reaches kEpochsBeforeDerivedSpeed and the receiver's speed is never replaced by the derived one.
void PositionVerifier::takeSpeed(GpsFix& fix, float derivedSpeed) {
    if (fix.m_nPendingChanges & GpsChange::kSpeedCourse) {
        if (fix.m_fSpeed > m_stats.m_fMaxSpeed) m_stats.m_fMaxSpeed = fix.m_fSpeed;
    } else if (m_nEpochsWithoutSpeed >= kEpochsBeforeDerivedSpeed) {
        fix.m_fSpeed = derivedSpeed;
        if (fix.m_fSpeed > m_stats.m_fMaxSpeed) m_stats.m_fMaxSpeed = fix.m_fSpeed;
    } else {
        ++m_nEpochsWithoutSpeed;
    }
    if (m_nEpochsWithoutSpeed != 0) m_nEpochsWithoutSpeed = 0;
}

void PositionVerifier::addStep(const GpsFix& fix, int32_t seconds, double km) {
    m_stats.m_nRunTime += seconds;
    m_stats.m_dRunDistance += km;
    if (fix.m_fSpeed > static_cast<float>(m_nMinSpeedForAvr2)) {
        if ((m_stats.m_nTourTime & kTourSaveMask) == 0) m_tourStore.save(m_stats);
        m_stats.m_nTourTime += seconds;
        m_stats.m_dTourDistance += km;
        m_stats.m_nMovingTime += seconds;
        m_stats.m_dMovingDistance += km;
        m_stats.m_tBreakStart = fix.m_tFixTime;
    }
}
