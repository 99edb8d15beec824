#include "gps/share/SimulatedDrive.h"

#include "gps/NmeaLineBuilder.h"
#include "gps/NmeaSentence.h"
#include "gps/NmeaTime.h"
#include "nav/GeoSphere.h"

#include <QDate>
#include <cmath>
#include <numbers>

namespace {

constexpr double kKnotsPerKmh = 1 / 1.852;
// A longer silence of the receiver is not driven through in one step.
constexpr int64_t kLongestStepSeconds = 60;

bool isPositionSentence(const NmeaFields& fields) {
    const std::string_view name = fields.field(0);
    if (name.size() != 6) return false;
    const std::string_view kind = name.substr(3);
    return kind == "GGA" || kind == "RMC" || kind == "GLL" || kind == "VTG" || kind == "GNS";
}

// Seconds of the day from "hhmmss(.ss)"; -1 when unreadable.
int secondOfDay(std::string_view field) {
    if (field.size() < 6) return -1;
    for (int i = 0; i < 6; ++i) {
        if (field[i] < '0' || field[i] > '9') return -1;
    }
    const int hours = (field[0] - '0') * 10 + field[1] - '0';
    const int minutes = (field[2] - '0') * 10 + field[3] - '0';
    const int seconds = (field[4] - '0') * 10 + field[5] - '0';
    if (hours > 23 || minutes > 59 || seconds > 60) return -1;
    return hours * 3600 + minutes * 60 + seconds;
}

// Days since 1970 from "ddmmyy"; false when unreadable.
bool dayNumber(std::string_view field, int64_t& day) {
    if (field.size() != 6) return false;
    const int value = nmeaInt(field);
    const QDate date(2000 + value % 100, value / 100 % 100, value / 10000);
    if (!date.isValid()) return false;
    day = QDate(1970, 1, 1).daysTo(date);
    return true;
}

} // namespace

void SimulatedDrive::setTarget(double lat, double lon) {
    m_target = Point{lat, lon};
    m_position.reset();
    m_lastUtc.reset();
}

void SimulatedDrive::end() {
    m_target.reset();
    m_position.reset();
}

bool SimulatedDrive::observe(const QByteArray& line, std::optional<int64_t>& epochUtc) {
    NmeaFields fields;
    if (!splitNmeaLine(std::string_view(line.constData(), size_t(line.size())), fields) ||
        !isPositionSentence(fields))
        return false;
    const std::string_view kind = fields.field(0).substr(3);
    const bool gga = kind == "GGA";
    const bool rmc = kind == "RMC";
    if (!gga && !rmc) return true;
    if (rmc) dayNumber(fields.field(9), m_nDay);
    const bool valid = gga ? nmeaInt(fields.field(6)) > 0 : fields.field(2) == "A";
    Point point;
    if (valid && parseNmeaLatitude(fields.fieldStart(gga ? 2 : 3), fields.lineEnd(), point.m_dLat) &&
        parseNmeaLongitude(fields.fieldStart(gga ? 4 : 5), fields.lineEnd(), point.m_dLon)) {
        m_lastValid = point;
        if (gga) m_dAltitude = nmeaDouble(fields.field(9));
    }
    if (const int second = secondOfDay(fields.field(1)); second >= 0) epochUtc = m_nDay * 86400 + second;
    return true;
}

void SimulatedDrive::take(const QByteArray& line, QList<QByteArray>& out) {
    std::optional<int64_t> epochUtc;
    const bool position = observe(line, epochUtc);
    // Until there is a position to start from, the receiver's lines pass as they are.
    if (!position || !active() || (!m_position && !m_lastValid)) {
        out.append(line);
        return;
    }
    if (epochUtc && (!m_lastUtc || *epochUtc != *m_lastUtc)) step(*epochUtc, out);
}

void SimulatedDrive::step(int64_t utc, QList<QByteArray>& out) {
    double speedKmh = 0;
    if (!m_position) {
        m_position = m_lastValid;
    } else {
        int64_t seconds = m_lastUtc ? utc - *m_lastUtc : 1;
        if (seconds <= 0 || seconds > kLongestStepSeconds) seconds = 1;
        float course = 0;
        const double remainingKm =
            GeoDistance(m_position->m_dLon, m_position->m_dLat, m_target->m_dLon, m_target->m_dLat, &course);
        const double stepKm = m_dSpeedKmh * double(seconds) / 3600.0;
        if (remainingKm > 0) m_fCourseRad = course;
        if (stepKm >= remainingKm) {
            m_position = m_target;
            speedKmh = remainingKm > 0 ? m_dSpeedKmh : 0;
        } else {
            GeoDestination(m_position->m_dLon, m_position->m_dLat, stepKm, course * 180.0 / std::numbers::pi,
                           m_position->m_dLon, m_position->m_dLat);
            speedKmh = m_dSpeedKmh;
        }
    }
    m_lastUtc = utc;
    out.append(NmeaLineBuilder("$GPGGA")
                   .utcTime(utc)
                   .latitude(m_position->m_dLat)
                   .longitude(m_position->m_dLon)
                   .text("1")
                   .text("08")
                   .text("1.0")
                   .fixed(m_dAltitude, 1)
                   .text("M")
                   .text("0.0")
                   .text("M")
                   .empty(2)
                   .finish());
    out.append(NmeaLineBuilder("$GPRMC")
                   .utcTime(utc)
                   .text("A")
                   .latitude(m_position->m_dLat)
                   .longitude(m_position->m_dLon)
                   .fixed(speedKmh * kKnotsPerKmh, 1)
                   .fixed(double(m_fCourseRad) * 180.0 / std::numbers::pi, 1)
                   .utcDate(utc)
                   .empty(2)
                   .finish());
}
