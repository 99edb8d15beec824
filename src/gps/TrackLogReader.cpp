#include "gps/TrackLogReader.h"

#include "gps/LogLineSplitter.h"
#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"
#include "gps/TalkerRewrite.h"
#include "platform/DeviceClock.h"
#include "settings/DevLog.h"

#include <QFileDevice>
#include <QIODevice>
#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr float kKnotsToKmh = 1.851998f;
constexpr qint64 kMinBytesPerPoint = 64; // a $GPGGA with a fix is longer
constexpr qint64 kMaxReservedPoints = 1 << 22;

// Folds log sentences into the working record and appends points.
class TrackBuilder {
public:
    TrackBuilder(std::vector<TrackPoint>& points, const GpsFix& fix, const DeviceClock& clock, bool bDetails)
        : m_points(points), m_nAltitudeOffset(fix.m_nAltitudeOffset), m_time(clock), m_bDetails(bDetails) {}

    // The name is looked at before the line is split: a line of no use here is skipped whether
    // its checksum holds or not, and most lines of a log are of no use here.
    void add(std::string_view line) {
        const std::string_view name = line.substr(0, 6);
        if (name == "$GPGGA") {
            if (splitNmeaLine(line, m_fields)) addGga();
        } else if (name == "$GPRMC" && !m_bGgaSeen) {
            if (splitNmeaLine(line, m_fields)) addRmc();
        } else if (name == "$GPVTG" && m_bDetails) {
            if (splitNmeaLine(line, m_fields) && m_fields.count() >= 8)
                m_point.m_fSpeed = static_cast<float>(nmeaDouble(m_fields.field(7)));
        }
    }

private:
    bool readTimeAndPosition(int timeField, int latField) {
        const char* end = m_fields.lineEnd();
        return m_time.parse(m_fields.fieldStart(timeField), end, m_point.m_tTime) &&
               parseNmeaLatitude(m_fields.fieldStart(latField), end, m_point.m_dLat) &&
               parseNmeaLongitude(m_fields.fieldStart(latField + 2), end, m_point.m_dLong);
    }
    // $GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47
    void addGga() {
        if (m_fields.count() <= 9 || !readTimeAndPosition(1, 2)) return;
        if (m_bDetails) {
            m_point.m_nValid = static_cast<uint8_t>(nmeaInt(m_fields.field(6)));
            m_point.m_nSatellites = static_cast<uint8_t>(nmeaInt(m_fields.field(7)));
            m_point.m_fHdop = static_cast<float>(nmeaDouble(m_fields.field(8)));
        } else if (nmeaInt(m_fields.field(6)) == 0) {
            return;
        }
        m_point.m_fAltitude = static_cast<float>(m_nAltitudeOffset + nmeaDouble(m_fields.field(9)));
        m_points.push_back(m_point);
        m_bGgaSeen = true;
    }
    // $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
    void addRmc() {
        const char* end = m_fields.lineEnd();
        if (m_fields.count() <= 9 || !m_time.parse(m_fields.fieldStart(1), end, m_point.m_tTime)) return;
        const bool bActive = m_fields.field(2).substr(0, 1) == "A";
        if (m_bDetails) {
            m_point.m_nValid = bActive ? 1 : 0;
            m_point.m_fSpeed = static_cast<float>(nmeaDouble(m_fields.field(7)) * kKnotsToKmh);
        } else if (!bActive) {
            return;
        }
        if (!parseNmeaLatitude(m_fields.fieldStart(3), end, m_point.m_dLat) ||
            !parseNmeaLongitude(m_fields.fieldStart(5), end, m_point.m_dLong))
            return;
        m_points.push_back(m_point);
    }

    std::vector<TrackPoint>& m_points;
    const int32_t m_nAltitudeOffset;
    NmeaTime m_time;
    const bool m_bDetails;
    NmeaFields m_fields;
    TrackPoint m_point; // the working record, carried from sentence to sentence
    bool m_bGgaSeen = false;
};

} // namespace

bool ReadFromFile(QIODevice* file, std::vector<TrackPoint>& points, const GpsFix& fix,
                  const DeviceClock& clock, bool bDetails, bool bAcceptAllTalkers) {
    if (!file || !file->isOpen() || file->isSequential() || !file->seek(0)) return false;
    points.clear();
    // Room for one point per 64 bytes, more than any log holds, saves copying a growing list.
    points.reserve(
        static_cast<size_t>(std::min<qint64>(file->size() / kMinBytesPerPoint, kMaxReservedPoints)));
    TrackBuilder builder(points, fix, clock, bDetails);
    LogLineSplitter lines(*file);
    std::span<char> line;
    while (lines.next(line)) {
        if (bAcceptAllTalkers) rewriteTalkerToGp(line.data(), static_cast<int>(line.size()));
        builder.add({line.data(), line.size()});
    }
    if (lines.readFailed()) {
        const auto* fileDevice = qobject_cast<const QFileDevice*>(file);
        devLog("!!!!!!!!!!GetExceptionCode in ReadFromFile: %x",
               fileDevice ? static_cast<unsigned>(fileDevice->error()) : 1u);
    }
    return true;
}
