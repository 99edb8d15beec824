#include "gps/GpsFix.h"
#include "gps/PositionVerifier.h"
#include "gps/TourStatistics.h"
#include "gps/TourStore.h"
#include "platform/DeviceClock.h"
#include "settings/CRegistryKey.h"
#include "support/TestRoot.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr double kStartLong = 11.5;
constexpr double kStartLat = 48.1;
constexpr double kMetresPerDegree = 111120.0;
constexpr uint32_t kNotSaved = 0xFFFFFFFF;
// The law of cosines loses about a metre in a few metres; distances are compared to that.
constexpr double kKmTolerance = 1e-3;

// One fix handed to VerifyTimeAndPosition: seconds and metres north of the previous fix.
struct Step {
    int64_t nSeconds;
    double dNorthMetres;
    float fSpeed = 50; // km/h as the receiver sent it
    bool bReceiverSpeed = true;
    float fHdop = 1;
    float fAltitude = 500;
};

struct VerifiedRun {
    std::vector<uint8_t> valid; // the result for every step
    TourStatistics stats;
    GpsFix fix;
    uint32_t nSavedTourTime = kNotSaved;
};

VerifiedRun verify(const std::vector<Step>& steps, int32_t nMaxBreakMin = 60, int32_t nSpeedLimit = 1000,
                   int32_t nStartTourTime = 0) {
    TestRoot root;
    CRegistryKey key;
    key.WriteDword("MaxBreakMin", static_cast<uint32_t>(nMaxBreakMin));
    key.WriteDword("SpeedLimit", static_cast<uint32_t>(nSpeedLimit));
    FixedDeviceClock clock(1779400000);
    TourStore store(clock);
    VerifiedRun run;
    run.stats.m_nTourTime = nStartTourTime;
    PositionVerifier verifier(run.stats, store);
    verifier.loadSettings(key);
    run.fix.m_dPosLong = kStartLong;
    run.fix.m_dPosLat = kStartLat;
    run.fix.m_tFixTime = 1779400000;
    run.fix.m_tPrevFixTime = run.fix.m_tFixTime - 86400; // as at the start of a run
    for (const Step& step : steps) {
        run.fix.m_tFixTime += step.nSeconds;
        run.fix.m_dPosLat += step.dNorthMetres / kMetresPerDegree;
        run.fix.m_fSpeed = step.fSpeed;
        run.fix.m_fHdop = step.fHdop;
        run.fix.m_fAltitude = step.fAltitude;
        run.fix.m_nPendingChanges = step.bReceiverSpeed ? GpsChange::kRmc : GpsChange::kGga;
        run.valid.push_back(verifier.VerifyTimeAndPosition(run.fix));
    }
    key.ReadDword("TourTime", run.nSavedTourTime);
    return run;
}

// clang-format off
TEST(DocVerify, AcceptsRejectsAndCountsFixes) {
    struct Case {
        const char* legend;
        std::vector<Step> steps;
        int32_t nMaxBreakMin, nSpeedLimit;
        std::vector<uint8_t> expected;
        int32_t nRunTime, nMovingTime; // the tour time follows the moving time
        double dRunKm, dMovingKm;
    } cases[] = {
        {"first fix without a last position is the start point", {{1, 0}}, 60, 1000, {0}, 0, 0, 0, 0},
        {"then 10 m in 1 s (36 km/h) is valid", {{1, 0}, {1, 10}}, 60, 1000, {0, 1}, 1, 1, 0.01, 0.01},
        {"3.0 km/h is not moving", {{1, 0}, {1, 10, 3.0f}}, 60, 1000, {0, 1}, 1, 0, 0.01, 0},
        {"3.1 km/h is moving", {{1, 0}, {1, 10, 3.1f}}, 60, 1000, {0, 1}, 1, 1, 0.01, 0.01},
        {"a gap of 3601 s with MaxBreakMin 60 is a break; the last position stays",
         {{1, 0}, {3601, 10}, {1, 10}}, 60, 1000, {0, 0, 1}, 1, 1, 0.02, 0.02},
        {"a fix before the previous one", {{1, 0}, {-5, 10}}, 60, 1000, {0, 0}, 0, 0, 0, 0},
        {"1 km in 1 s: the next fix starts afresh",
         {{1, 0}, {1, 1000}, {1, 10}, {1, 10}}, 60, 1000, {0, 0, 0, 1}, 1, 1, 0.01, 0.01},
        {"the same second again counts nothing but is valid", {{1, 0}, {0, 10}}, 60, 1000, {0, 1}, 0, 0, 0, 0},
        {"a lower speed limit rejects 72 km/h", {{1, 0}, {1, 20}}, 60, 50, {0, 0}, 0, 0, 0, 0},
    };
    for (const Case& c : cases) {
        const VerifiedRun run = verify(c.steps, c.nMaxBreakMin, c.nSpeedLimit);
        EXPECT_EQ(run.valid, c.expected) << c.legend;
        EXPECT_EQ(run.stats.m_nRunTime, c.nRunTime) << c.legend;
        EXPECT_EQ(run.stats.m_nMovingTime, c.nMovingTime) << c.legend;
        EXPECT_EQ(run.stats.m_nTourTime, c.nMovingTime) << c.legend;
        EXPECT_NEAR(run.stats.m_dRunDistance, c.dRunKm, kKmTolerance) << c.legend;
        EXPECT_NEAR(run.stats.m_dMovingDistance, c.dMovingKm, kKmTolerance) << c.legend;
    }
}

TEST(DocVerify, KeepsExtremesSpeedAndGradient) {
    const Step slow{1, 10, 7, false}; // 36 km/h by position, 7 km/h by a speed from an earlier epoch
    struct Case {
        const char* legend;
        std::vector<Step> steps;
        float fMinAlt, fMaxAlt, fMaxSpeed, fSpeedAfter, fGradient;
    } cases[] = {
        {"HDOP 45.0 leaves the altitude extremes alone", {{1, 0}, {1, 10, 50, true, 45.0f, 800}}, 9000, -1000, 50, 50, 0},
        {"HDOP 44.9 counts", {{1, 0}, {1, 10, 50, true, 44.9f, 800}}, 800, 800, 50, 50, 0},
        {"without receiver speed the maximum stays and the speed is never replaced",
         {{1, 0}, slow, slow, slow, slow, slow, slow, slow, slow}, 500, 500, 0, 7, 0},
        {"5 m up over 100 m is a gradient of 5 %",
         {{1, 0}, {1, 10, 50, true, 1, 500}, {10, 100, 50, true, 1, 505}}, 500, 505, 50, 50, 5.00626f},
    };
    for (const Case& c : cases) {
        const VerifiedRun run = verify(c.steps);
        EXPECT_FLOAT_EQ(run.stats.m_fMinAltitude, c.fMinAlt) << c.legend;
        EXPECT_FLOAT_EQ(run.stats.m_fMaxAltitude, c.fMaxAlt) << c.legend;
        EXPECT_FLOAT_EQ(run.stats.m_fMaxSpeed, c.fMaxSpeed) << c.legend;
        EXPECT_FLOAT_EQ(run.fix.m_fSpeed, c.fSpeedAfter) << c.legend;
        EXPECT_NEAR(run.stats.m_fGradient, c.fGradient, 0.01) << c.legend;
    }
}
// clang-format on

TEST(DocVerify, SavesTheTourEvery512MovingSeconds) {
    struct Case {
        const char* legend;
        int32_t nStartTourTime;
        uint32_t nSaved; // "TourTime" in the store afterwards
    } cases[] = {
        {"at 512 the tour is saved before the step is added", 512, 512},
        {"at 513 nothing is saved", 513, kNotSaved},
        {"at 0 (a fresh tour) it is saved too", 0, 0},
    };
    for (const Case& c : cases) {
        const VerifiedRun run = verify({{1, 0}, {1, 10}}, 60, 1000, c.nStartTourTime);
        EXPECT_EQ(run.nSavedTourTime, c.nSaved) << c.legend;
        EXPECT_EQ(run.stats.m_nTourTime, c.nStartTourTime + 1) << c.legend;
    }
}

} // namespace
