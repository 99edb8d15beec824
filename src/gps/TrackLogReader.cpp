#include "gps/TrackLogReader.h"

#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"
#include "platform/DeviceClock.h"
#include "settings/DevLog.h"

#include <QFileDevice>
#include <QIODevice>
#include <algorithm>
#include <cstring>
#include <vector>

namespace {

constexpr float kKnotsToKmh = 1.851998f;
constexpr size_t kMaxLineLength = 1023; // longer lines are read in pieces of this size
constexpr size_t kChunkSize = 1 << 16;
constexpr qint64 kMinBytesPerPoint = 64; // a $GPGGA with a fix is longer
constexpr qint64 kMaxReservedPoints = 1 << 22;

// Hands out the lines of a device, each with its "\n", in pieces of at most kMaxLineLength bytes.
class LineChunker {
public:
    explicit LineChunker(QIODevice& device) : m_device(device), m_buffer(kChunkSize + kMaxLineLength) {}

    // False at the end of the data or on a read error (then readFailed()).
    bool next(std::string_view& line) {
        for (;;) {
            const size_t available = m_nEnd - m_nPos;
            const size_t window = std::min(available, kMaxLineLength);
            const char* start = m_buffer.data() + m_nPos;
            if (const void* newline = std::memchr(start, '\n', window)) {
                return take(line, static_cast<size_t>(static_cast<const char*>(newline) - start) + 1);
            }
            if (available >= kMaxLineLength) return take(line, kMaxLineLength);
            if (m_bEnd) return available > 0 && take(line, available);
            refill();
        }
    }
    bool readFailed() const { return m_bFailed; }

private:
    bool take(std::string_view& line, size_t length) {
        line = {m_buffer.data() + m_nPos, length};
        m_nPos += length;
        return true;
    }
    void refill() {
        std::memmove(m_buffer.data(), m_buffer.data() + m_nPos, m_nEnd - m_nPos);
        m_nEnd -= m_nPos;
        m_nPos = 0;
        const qint64 got =
            m_device.read(m_buffer.data() + m_nEnd, static_cast<qint64>(m_buffer.size() - m_nEnd));
        if (got > 0) {
            m_nEnd += static_cast<size_t>(got);
            return;
        }
        m_bEnd = true;
        m_bFailed = got < 0;
    }

    QIODevice& m_device;
    std::vector<char> m_buffer;
    size_t m_nPos = 0, m_nEnd = 0;
    bool m_bEnd = false, m_bFailed = false;
};

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
                  const DeviceClock& clock, bool bDetails) {
    if (!file || !file->isOpen() || file->isSequential() || !file->seek(0)) return false;
    points.clear();
    // Room for one point per 64 bytes, more than any log holds, saves copying a growing list.
    points.reserve(
        static_cast<size_t>(std::min<qint64>(file->size() / kMinBytesPerPoint, kMaxReservedPoints)));
    TrackBuilder builder(points, fix, clock, bDetails);
    LineChunker lines(*file);
    std::string_view line;
    while (lines.next(line))
        builder.add(line);
    if (lines.readFailed()) {
        const auto* fileDevice = qobject_cast<const QFileDevice*>(file);
        devLog("!!!!!!!!!!GetExceptionCode in ReadFromFile: %x",
               fileDevice ? static_cast<unsigned>(fileDevice->error()) : 1u);
    }
    return true;
}
