#pragma once

#include "gps/GradientMeter.h"

#include <cstdint>

class CRegistryKey;
class TourStore;
struct GpsFix;
struct TourStatistics;

// Decides whether a new fix is plausible against the last accepted one and folds an accepted fix
// into the statistics: run, moving and tour figures, extremes, maximum speed and gradient.
class PositionVerifier {
public:
    PositionVerifier(TourStatistics& stats, TourStore& tourStore);

    // "SpeedLimit", "MaxBreakMin" and "MinSpeedForAvr2".
    void loadSettings(CRegistryKey& key);

    // The new value of fix.m_nValid for a fix the receiver called valid: 1 when it is accepted
    // (and counted), 0 when it is the first after a start or a rejection, lies after a break
    // (or before the previous fix), or implies more than the speed limit. Uses
    // fix.m_nPendingChanges to see whether the receiver sent a speed in this epoch.
    uint8_t VerifyTimeAndPosition(GpsFix& fix);

    // The last accepted position (degrees); a longitude of 0.0 means none, and the next fix starts afresh.
    void setLastPosition(double lon, double lat);
    // With a reset of the statistics: the next fix starts afresh.
    void forgetPositions();
    double lastLong() const { return m_dLastLong; }
    double lastLat() const { return m_dLastLat; }

private:
    void takeSpeed(GpsFix& fix, float derivedSpeed);
    void addStep(const GpsFix& fix, int32_t seconds, double km);

    TourStatistics& m_stats;
    TourStore& m_tourStore;
    GradientMeter m_gradient;
    int32_t m_nSpeedLimit;      // km/h
    int32_t m_nMaxBreakMin;     // minutes
    int32_t m_nMinSpeedForAvr2; // km/h
    double m_dLastLong = 0;
    double m_dLastLat = 0;
    int m_nEpochsWithoutSpeed = 0;
};
