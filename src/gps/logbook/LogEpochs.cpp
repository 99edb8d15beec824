#include "gps/logbook/LogEpochs.h"

#include "gps/LogSentences.h"
#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"

#include <charconv>

namespace {

constexpr float kKnotsToKmh = 1.852f;
constexpr int64_t kMsPerDay = 86400000;

// hhmmss[.sss] as milliseconds of the day; nothing when unreadable.
std::optional<int64_t> msOfDay(std::string_view field) {
    if (field.size() < 6) return std::nullopt;
    int hhmmss = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + 6, hhmmss);
    if (error != std::errc() || end != field.data() + 6) return std::nullopt;
    const int hours = hhmmss / 10000, minutes = hhmmss / 100 % 100, seconds = hhmmss % 100;
    if (hours > 23 || minutes > 59 || seconds > 60) return std::nullopt;
    int64_t ms = (hours * 3600 + minutes * 60 + seconds) * int64_t{1000};
    if (field.size() > 7 && field[6] == '.') {
        int scale = 100;
        for (size_t i = 7; i < field.size() && i < 10 && field[i] >= '0' && field[i] <= '9'; ++i, scale /= 10)
            ms += (field[i] - '0') * scale;
    }
    return ms;
}

// Days since 1970 of a civil date (proleptic Gregorian).
int64_t daysFromCivil(int year, int month, int day) {
    year -= month <= 2;
    const int64_t era = (year >= 0 ? year : year - 399) / 400;
    const int64_t yearOfEra = year - era * 400;
    const int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

std::optional<float> optionalFloat(std::string_view field) {
    if (field.empty()) return std::nullopt;
    return static_cast<float>(nmeaDouble(field));
}

class EpochCollector {
public:
    EpochCollector(std::vector<LogEpoch>& epochs, int64_t fallbackDate) : m_epochs(epochs), m_nDate(fallbackDate) {}

    void add(std::string_view line) {
        if (line.size() < 6 || !splitNmeaLine(line, m_fields)) return;
        const std::string_view name = m_fields.field(0);
        if (name == "$GPGGA" && m_fields.count() > 9) addGga();
        else if (name == "$GPRMC" && m_fields.count() > 9) addRmc();
        else if (name == "$GPGLL" && m_fields.count() > 6) addGll();
        else if (name == "$GPVTG" && m_fields.count() > 7) addVtg();
        else if (name == "$GPZDA" && m_fields.count() > 4) addZda();
    }
    void finish() { flush(); }

private:
    // Starts (or continues) the epoch of a time stamp with a valid position.
    bool startEpoch(int timeField, int latField, bool valid) {
        const std::optional<int64_t> ms = msOfDay(m_fields.field(timeField));
        if (!ms) return false;
        const char* end = m_fields.lineEnd();
        double lat = 0, lon = 0;
        if (!valid || !parseNmeaLatitude(m_fields.fieldStart(latField), end, lat) ||
            !parseNmeaLongitude(m_fields.fieldStart(latField + 2), end, lon))
            return false;
        if (!m_bOpen || *ms != m_nMsOfDay) {
            flush();
            // A time of day that falls back by more than half a day crossed midnight.
            if (m_bStarted && *ms + kMsPerDay / 2 < m_nMsOfDay) ++m_nDate;
            m_epoch = LogEpoch{};
            m_nMsOfDay = *ms;
            m_nEpochDate = m_nDate;
            m_bOpen = m_bStarted = true;
        }
        m_epoch.m_dLat = lat;
        m_epoch.m_dLong = lon;
        return true;
    }
    void flush() {
        if (!m_bOpen) return;
        m_epoch.m_nUtcMs = m_nEpochDate * kMsPerDay + m_nMsOfDay;
        m_epochs.push_back(m_epoch);
        m_bOpen = false;
    }
    // $GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47
    void addGga() {
        const int quality = nmeaInt(m_fields.field(6));
        if (!startEpoch(1, 2, quality != 0)) return;
        m_epoch.m_nQuality = quality;
        if (!m_fields.field(7).empty()) m_epoch.m_satellites = nmeaInt(m_fields.field(7));
        m_epoch.m_hdop = optionalFloat(m_fields.field(8));
        m_epoch.m_altitude = optionalFloat(m_fields.field(9));
    }
    // $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
    void addRmc() {
        const std::string_view date = m_fields.field(9);
        int ddmmyy = 0;
        const bool bDated =
            date.size() == 6 && std::from_chars(date.data(), date.data() + 6, ddmmyy).ec == std::errc();
        const bool bEpoch = startEpoch(1, 3, m_fields.field(2).substr(0, 1) == "A");
        if (bDated) {
            const int year = ddmmyy % 100;
            m_nDate = daysFromCivil(year < 80 ? 2000 + year : 1900 + year, ddmmyy / 100 % 100, ddmmyy / 10000);
            if (bEpoch) m_nEpochDate = m_nDate;
        }
        if (!bEpoch) return;
        if (m_epoch.m_nQuality == 0) m_epoch.m_nQuality = 1;
        if (!m_fields.field(7).empty()) m_epoch.m_speed = static_cast<float>(nmeaDouble(m_fields.field(7))) * kKnotsToKmh;
        m_epoch.m_course = optionalFloat(m_fields.field(8));
    }
    // $GPGLL,4916.45,N,12311.12,W,225444,A,*1D
    void addGll() {
        if (startEpoch(5, 1, m_fields.field(6).substr(0, 1) == "A") && m_epoch.m_nQuality == 0)
            m_epoch.m_nQuality = 1;
    }
    // $GPVTG,054.7,T,034.4,M,005.5,N,010.2,K*48
    void addVtg() {
        if (!m_bOpen) return;
        if (!m_fields.field(7).empty()) m_epoch.m_speed = optionalFloat(m_fields.field(7));
        if (!m_fields.field(1).empty()) m_epoch.m_course = optionalFloat(m_fields.field(1));
    }
    // $GPZDA,032908,07,08,2004,00,00*41
    void addZda() {
        const int day = nmeaInt(m_fields.field(2)), month = nmeaInt(m_fields.field(3)), year = nmeaInt(m_fields.field(4));
        if (day >= 1 && day <= 31 && month >= 1 && month <= 12 && year >= 1980) m_nDate = daysFromCivil(year, month, day);
    }

    std::vector<LogEpoch>& m_epochs;
    int64_t m_nDate; // days since 1970 of the current sentences
    NmeaFields m_fields;
    LogEpoch m_epoch;
    int64_t m_nMsOfDay = 0;
    int64_t m_nEpochDate = 0;
    bool m_bOpen = false;
    bool m_bStarted = false;
};

} // namespace

std::vector<LogEpoch> readLogEpochs(QByteArrayView log, int64_t fallbackDate, bool bAcceptAllTalkers) {
    std::vector<LogEpoch> epochs;
    EpochCollector collector(epochs, fallbackDate);
    forEachLogSentence(log, bAcceptAllTalkers, [&collector](const char* line, int length) {
        collector.add({line, static_cast<size_t>(length)});
        return true;
    });
    collector.finish();
    return epochs;
}
