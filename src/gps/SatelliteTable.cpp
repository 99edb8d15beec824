#include "gps/SatelliteTable.h"

#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"

#include <algorithm>
#include <optional>

namespace {

constexpr int kNoKey = -1;
constexpr int kMaxSignalId = 15;

struct Numbering {
    GnssSystem system;
    int number; // the system's own satellite number
};

// The system a talker names; nothing for "GP" and "GN", whose PRN ranges tell.
std::optional<GnssSystem> talkerSystem(std::string_view talker) {
    if (talker == "GL") return GnssSystem::Glonass;
    if (talker == "GA") return GnssSystem::Galileo;
    if (talker == "GB" || talker == "BD") return GnssSystem::BeiDou;
    if (talker == "GQ" || talker == "QZ") return GnssSystem::Qzss;
    return std::nullopt;
}

// NMEA 4.10 system ID (GSA field 18); nothing for GPS, whose PRN ranges hold SBAS as well.
std::optional<GnssSystem> systemIdSystem(int id) {
    switch (id) {
    case 2:
        return GnssSystem::Glonass;
    case 3:
        return GnssSystem::Galileo;
    case 4:
        return GnssSystem::BeiDou;
    case 5:
        return GnssSystem::Qzss;
    default:
        return std::nullopt;
    }
}

// The PRN ranges receivers use when one talker carries several systems (NMEA 4.x and the
// extended numberings of u-blox, Telit and others).
Numbering byRange(int prn) {
    if (prn >= 33 && prn <= 64) return {GnssSystem::Sbas, prn + 87};
    if (prn >= 65 && prn <= 96) return {GnssSystem::Glonass, prn - 64};
    if (prn >= 120 && prn <= 158) return {GnssSystem::Sbas, prn};
    if (prn >= 193 && prn <= 200) return {GnssSystem::Qzss, prn - 192};
    if (prn >= 201 && prn <= 263) return {GnssSystem::BeiDou, prn - 200};
    if (prn >= 301 && prn <= 336) return {GnssSystem::Galileo, prn - 300};
    if (prn >= 401 && prn <= 463) return {GnssSystem::BeiDou, prn - 400};
    return {GnssSystem::Gps, prn};
}

Numbering numbering(std::optional<GnssSystem> system, int prn) {
    if (!system) return byRange(prn);
    int number = prn;
    switch (*system) {
    case GnssSystem::Glonass:
        number = prn > 64 && prn <= 96 ? prn - 64 : prn;
        break;
    case GnssSystem::Galileo:
        number = prn > 300 ? prn - 300 : prn;
        break;
    case GnssSystem::BeiDou:
        number = prn > 400 ? prn - 400 : prn > 200 ? prn - 200 : prn;
        break;
    case GnssSystem::Qzss:
        number = prn > 192 ? prn - 192 : prn;
        break;
    default:
        break;
    }
    return {*system, number};
}

std::string_view talkerOf(const NmeaFields& fields) {
    return fields.field(0).substr(1, 2);
}

int optionalInt(std::string_view field) {
    return field.empty() ? -1 : nmeaInt(field);
}

} // namespace

const char* gnssSystemName(GnssSystem system) {
    static constexpr const char* kNames[] = {"GPS", "SBAS", "GLONASS", "Galileo", "BeiDou", "QZSS"};
    return kNames[static_cast<int>(system)];
}

void SatelliteTable::clear() {
    m_gsv.clear();
    m_gsa.clear();
    m_incoming.clear();
    m_nNextMessage = 1;
    m_inView.clear();
    m_nFixMode = 0;
    m_fPdop = m_fHdop = m_fVdop = 0;
}

bool SatelliteTable::accepts(std::string_view talker) const {
    if (talker == "GP") return true;
    return m_bAcceptAllTalkers && (talker == "GN" || talkerSystem(talker));
}

// $GNGSA,A,3,01,11,31,14,22,32,04,25,03,,,,1.56,0.91,1.27,1*15
//  0     1 2 3..14 PRNs                   15   16   17   18 system ID (NMEA 4.10)
void SatelliteTable::onGsa(const NmeaFields& fields) {
    const std::string_view talker = talkerOf(fields);
    if (!accepts(talker)) return;
    m_nFixMode = nmeaInt(fields.field(2));
    m_fPdop = static_cast<float>(nmeaDouble(fields.field(15)));
    m_fHdop = static_cast<float>(nmeaDouble(fields.field(16)));
    m_fVdop = static_cast<float>(nmeaDouble(fields.field(17)));
    // A talker of one system outranks field 18, which some of them fill with something else.
    std::optional<GnssSystem> system = talkerSystem(talker);
    if (!system && fields.count() > 18) system = systemIdSystem(nmeaInt(fields.field(18)));
    std::vector<Satellite> used;
    for (int index = 3; index < 15; ++index) {
        const int prn = nmeaInt(fields.field(index));
        if (prn <= 0) continue;
        const Numbering n = numbering(system, prn);
        used.push_back({n.system, n.number, {n.system, prn}});
    }
    // Without a system of its own the sentence belongs to the system of its first satellite; an
    // empty one of no known system only brings the dilutions.
    if (!used.empty() || system) {
        const GnssSystem key = system ? *system : used.front().system;
        m_gsa.complete(static_cast<int>(key), std::move(used));
    }
    rebuildView();
}

// $GPGSV,2,1,08,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45,1*75
//  0     1 2 3  4..7 first satellite, then up to three more; NMEA 4.10 adds a signal ID at the end
void SatelliteTable::onGsv(const NmeaFields& fields) {
    const std::string_view talker = talkerOf(fields);
    if (!accepts(talker)) return;
    const bool hasSignalId = fields.count() > 4 && (fields.count() - 4) % 4 == 1;
    const int end = hasSignalId ? fields.count() - 1 : fields.count();
    const int signalId = hasSignalId ? std::clamp(nmeaInt(fields.field(end)), 0, kMaxSignalId) : 0;
    const int key = ((talker[0] << 8) | talker[1]) * (kMaxSignalId + 1) + signalId;
    const int messages = nmeaInt(fields.field(1));
    const int message = nmeaInt(fields.field(2));
    if (message == 1) {
        m_incoming.clear();
        m_nIncomingKey = key;
        m_nNextMessage = 1;
    }
    if (message < 1 || message != m_nNextMessage || messages < message || key != m_nIncomingKey) {
        m_nNextMessage = 1;
        return;
    }
    const std::optional<GnssSystem> system = talkerSystem(talker);
    for (int first = 4; first < end; first += 4) {
        const int prn = nmeaInt(fields.field(first));
        if (prn <= 0) continue;
        const Numbering n = numbering(system, prn);
        const SatelliteInView view{n.system, prn, optionalInt(fields.field(first + 1)),
                                   optionalInt(fields.field(first + 2)), nmeaInt(fields.field(first + 3))};
        m_incoming.push_back({n.system, n.number, view});
    }
    m_nNextMessage = message + 1;
    if (message == messages) {
        m_gsv.complete(key, std::move(m_incoming));
        m_incoming.clear();
        m_nIncomingKey = kNoKey;
        m_nNextMessage = 1;
        rebuildView();
    }
}

int SatelliteTable::usedCount() const {
    int count = 0;
    for (const Group& group : m_gsa.groups())
        count += static_cast<int>(group.satellites.size());
    return count;
}

void SatelliteTable::rebuildView() {
    std::vector<Satellite> merged;
    for (const Group& group : m_gsv.groups()) {
        for (const Satellite& satellite : group.satellites) {
            const auto same = std::ranges::find_if(merged, [&satellite](const Satellite& known) {
                return known.system == satellite.system && known.number == satellite.number;
            });
            if (same == merged.end()) {
                merged.push_back(satellite);
                continue;
            }
            // Heard on another signal: the strongest signal counts, a known position fills a gap.
            same->view.m_nSnr = std::max(same->view.m_nSnr, satellite.view.m_nSnr);
            if (same->view.m_nElevation < 0) same->view.m_nElevation = satellite.view.m_nElevation;
            if (same->view.m_nAzimuth < 0) same->view.m_nAzimuth = satellite.view.m_nAzimuth;
        }
    }
    std::ranges::sort(merged, [](const Satellite& a, const Satellite& b) {
        return a.system != b.system ? a.system < b.system : a.number < b.number;
    });
    m_inView.clear();
    for (Satellite& satellite : merged) {
        for (const Group& group : m_gsa.groups())
            for (const Satellite& used : group.satellites)
                if (used.system == satellite.system && used.number == satellite.number)
                    satellite.view.m_bUsed = true;
        m_inView.push_back(satellite.view);
    }
}

void SatelliteTable::Rounds::complete(int key, std::vector<Satellite> satellites) {
    if (std::ranges::find(m_thisRound, key) != m_thisRound.end()) {
        // The key comes again: a round of all groups is over, and a group missing from it is gone.
        std::erase_if(m_groups, [this](const Group& group) {
            return std::ranges::find(m_thisRound, group.key) == m_thisRound.end();
        });
        m_thisRound.clear();
    }
    m_thisRound.push_back(key);
    const auto known = std::ranges::find(m_groups, key, &Group::key);
    if (known != m_groups.end())
        known->satellites = std::move(satellites);
    else
        m_groups.push_back({key, std::move(satellites)});
}

void SatelliteTable::Rounds::clear() {
    m_groups.clear();
    m_thisRound.clear();
}
