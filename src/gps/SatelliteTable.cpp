#include "gps/SatelliteTable.h"

#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"

#include <algorithm>

// $GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39
//  0     1 2 3..14 PRNs             15  16  17
void SatelliteTable::onGsa(const NmeaFields& fields) {
    m_nFixMode = nmeaInt(fields.field(2));
    m_nUsed = 0;
    for (int index = 3; index < 3 + kMaxUsed; ++index) {
        const int prn = nmeaInt(fields.field(index));
        if (prn != 0) m_usedPrns[static_cast<size_t>(m_nUsed++)] = prn;
    }
    m_fPdop = static_cast<float>(nmeaDouble(fields.field(15)));
    m_fHdop = static_cast<float>(nmeaDouble(fields.field(16)));
    m_fVdop = static_cast<float>(nmeaDouble(fields.field(17)));
}

// $GPGSV,2,1,08,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45*75
//  0     1 2 3  4..7 first satellite, then three more of four fields each
void SatelliteTable::onGsv(const NmeaFields& fields) {
    const int messages = nmeaInt(fields.field(1));
    const int message = nmeaInt(fields.field(2));
    if (message == 1) {
        m_nIncoming = 0;
        m_nNextMessage = 1;
    }
    if (message < 1 || message != m_nNextMessage || messages < message) {
        m_nNextMessage = 1;
        return;
    }
    for (int first = 4; first < fields.count() && first <= 16; first += 4) {
        if (fields.field(first).empty() || m_nIncoming == kMaxInView) break;
        SatelliteInView& satellite = m_incoming[static_cast<size_t>(m_nIncoming++)];
        satellite.m_nPrn = nmeaInt(fields.field(first));
        satellite.m_nElevation = nmeaInt(fields.field(first + 1));
        satellite.m_nAzimuth = nmeaInt(fields.field(first + 2));
        satellite.m_nSnr = nmeaInt(fields.field(first + 3));
    }
    m_nNextMessage = message + 1;
    if (message == messages) {
        m_inView = m_incoming;
        m_nInView = m_nIncoming;
        m_nNextMessage = 1;
    }
}

bool SatelliteTable::isUsed(int prn) const {
    return std::find(m_usedPrns.begin(), m_usedPrns.begin() + m_nUsed, prn) != m_usedPrns.begin() + m_nUsed;
}
