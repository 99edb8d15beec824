#pragma once

#include <cstdint>

// The figures of the current run and of the tour, and the extremes of the run. Distances are km,
// times seconds, altitudes metres, speeds km/h.
struct TourStatistics {
    // Every accepted fix adds to the run; only moving fixes add to the moving and tour figures.
    int32_t m_nRunTime = 0;
    double m_dRunDistance = 0;
    int32_t m_nMovingTime = 0;
    double m_dMovingDistance = 0;
    int32_t m_nTourTime = 0;    // survives restarts ("TourTime")
    double m_dTourDistance = 0; // survives restarts ("Tour")
    // Local seconds of the last fix that counted as moving: the start of the current break. 0 before
    // the first one.
    int64_t m_tBreakStart = 0;

    // The maxima start at 0.0, so in the western or southern hemisphere they stay 0.0: kept as the
    // pages and the logbook have always shown them.
    double m_dMinLong = kNoMinimum;
    double m_dMaxLong = 0.0;
    double m_dMinLat = kNoMinimum;
    double m_dMaxLat = 0.0;
    float m_fMinAltitude = kNoMinAltitude; // only fixes with HDOP below kMaxHdopForAltitude
    float m_fMaxAltitude = kNoMaxAltitude;
    float m_fMaxSpeed = 0;
    float m_fGradient = 0; // percent, over the last stretch of more than 50 m

    static constexpr double kNoMinimum = 1000000.0;
    static constexpr float kNoMinAltitude = 9000.0f;
    static constexpr float kNoMaxAltitude = -1000.0f;
    static constexpr float kMaxHdopForAltitude = 45.0f;

    // At every new log file: run and moving figures to 0.
    void clearRun();
    // With a reset of the statistics: extremes and maximum speed back to their start values.
    void clearExtremes();
    // An accepted position; its altitude counts only with an HDOP below kMaxHdopForAltitude.
    void noteExtremes(double lon, double lat, float altitude, float hdop);
};
