#pragma once

#include "gps/SatelliteObserver.h"

#include <cstdint>
#include <string_view>
#include <vector>

// The satellite systems a receiver reports, told apart by talker and PRN range.
enum class GnssSystem : uint8_t { Gps, Sbas, Glonass, Galileo, BeiDou, Qzss };
// "GPS", "SBAS", "GLONASS", "Galileo", "BeiDou", "QZSS".
const char* gnssSystemName(GnssSystem system);

struct SatelliteInView {
    GnssSystem m_system = GnssSystem::Gps;
    int m_nPrn = 0;        // as the GSV sent it (GLONASS 65..96, BeiDou 1..63 or 201.., ...)
    int m_nElevation = -1; // degrees above the horizon, 0..90; -1 when the GSV left it empty
    int m_nAzimuth = -1;   // degrees from true north, 0..359; -1 when the GSV left it empty
    int m_nSnr = 0;        // dB-Hz; 0 when the satellite is not tracked (empty field)
    bool m_bUsed = false;  // named by a GSA of the same system
};

// What a satellites page shows: the satellites in view from the latest complete GSV groups and the
// satellites used in the fix from the latest GSA of each system, with the dilutions of precision.
// Without "AcceptAllTalkers" only $GP sentences count, as the handheld read them; with it, the
// $GL/$GA/$GB/$BD/$GQ/$GN ones too. A receiver that reports one system per talker (or per signal,
// NMEA 4.10) sends one GSV group each; each group and each system's GSA replaces its own earlier
// one, and a group that does not come again within one round of all groups is dropped.
class SatelliteTable final : public SatelliteObserver {
public:
    void setAcceptAllTalkers(bool bAccept) { m_bAcceptAllTalkers = bAccept; }
    void clear();

    void onGsa(const NmeaFields& fields) override;
    void onGsv(const NmeaFields& fields) override;

    // Sorted by system, then PRN; a satellite heard on several signals once, with its best SNR.
    const std::vector<SatelliteInView>& inView() const { return m_inView; }
    int usedCount() const;                     // satellites named by the latest GSA of every system
    int fixMode() const { return m_nFixMode; } // GSA field 2: 1 no fix, 2 2D, 3 3D; 0 before any GSA
    float pdop() const { return m_fPdop; }
    float hdop() const { return m_fHdop; }
    float vdop() const { return m_fVdop; }

private:
    struct Satellite {
        GnssSystem system;
        int number; // the system's own number, so that GSA and GSV of different numberings meet
        SatelliteInView view;
    };
    // Groups of GSV and GSA sentences by key, with the round that drops the ones not repeated.
    struct Group {
        int key;
        std::vector<Satellite> satellites;
    };
    class Rounds {
    public:
        void complete(int key, std::vector<Satellite> satellites);
        const std::vector<Group>& groups() const { return m_groups; }
        void clear();

    private:
        std::vector<Group> m_groups;
        std::vector<int> m_thisRound; // keys completed since the round began
    };

    bool accepts(std::string_view talker) const;
    void rebuildView();

    bool m_bAcceptAllTalkers = false;
    Rounds m_gsv;
    Rounds m_gsa;
    std::vector<Satellite> m_incoming; // the GSV group being received
    int m_nIncomingKey = -1;
    int m_nNextMessage = 1; // the GSV message number expected next; a gap drops the group
    std::vector<SatelliteInView> m_inView;
    int m_nFixMode = 0;
    float m_fPdop = 0, m_fHdop = 0, m_fVdop = 0;
};
