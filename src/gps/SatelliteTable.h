#pragma once

#include "gps/SatelliteObserver.h"

#include <array>
#include <cstddef>
#include <cstdint>

struct SatelliteInView {
    int m_nPrn = 0;
    int m_nElevation = 0; // degrees above the horizon, 0..90
    int m_nAzimuth = 0;   // degrees from true north, 0..359
    int m_nSnr = 0;       // dB-Hz; 0 when the satellite is not tracked (empty field)
};

// What a satellites page shows: the satellites in view from the latest complete $GPGSV group and,
// from the latest $GPGSA, the PRNs used in the fix with the dilutions of precision.
class SatelliteTable final : public SatelliteObserver {
public:
    static constexpr int kMaxInView = 36; // nine GSV messages of four satellites
    static constexpr int kMaxUsed = 12;   // the PRN fields of a GSA

    void onGsa(const NmeaFields& fields) override;
    void onGsv(const NmeaFields& fields) override;

    int inViewCount() const { return m_nInView; }
    const SatelliteInView& inView(int index) const { return m_inView[static_cast<size_t>(index)]; }
    bool isUsed(int prn) const;
    int usedCount() const { return m_nUsed; }
    int usedPrn(int index) const { return m_usedPrns[static_cast<size_t>(index)]; }
    int fixMode() const { return m_nFixMode; } // GSA field 2: 1 no fix, 2 2D, 3 3D; 0 before any GSA
    float pdop() const { return m_fPdop; }
    float hdop() const { return m_fHdop; }
    float vdop() const { return m_fVdop; }

private:
    std::array<SatelliteInView, kMaxInView> m_inView{};
    std::array<SatelliteInView, kMaxInView> m_incoming{}; // the group being received
    int m_nInView = 0;
    int m_nIncoming = 0;
    int m_nNextMessage = 1; // the GSV message number expected next; a gap drops the group
    std::array<int, kMaxUsed> m_usedPrns{};
    int m_nUsed = 0;
    int m_nFixMode = 0;
    float m_fPdop = 0, m_fHdop = 0, m_fVdop = 0;
};
