#pragma once

// The slope of the way over the last stretch of more than 50 m. The references (altitude,
// position, accumulated distance) are taken on the first accepted fix and moved on whenever a
// gradient was measured.
class GradientMeter {
public:
    static constexpr double kMinStretchKm = 0.05;

    // One accepted fix `stepKm` after the previous one, at (lon, lat) degrees and `altitude`
    // metres. Updates `gradientPercent` when the stretch since the references is long enough.
    void addFix(double stepKm, double lon, double lat, float altitude, float& gradientPercent);

private:
    float m_fRefAltitude = 0;
    double m_dRefLong = 0;
    double m_dRefLat = 0;
    double m_dStretchKm = 0;
    bool m_bAltitudeTaken = false;
    bool m_bPositionTaken = false;
};
