#include "demo/DemoReceiver.h"

#include "gps/NmeaLineBuilder.h"

#include <cmath>

namespace {

constexpr int kColdStartS = 6; // seconds of clear sky before the very first fix
constexpr int kReacquireS = 2; // ... and before the next one after the sky was hidden
constexpr int kMinUsedForFix = 4;
constexpr double kKnotsPerKmh = 1.0 / 1.852;
constexpr double kMovingKmh = 1.0; // below this the receiver keeps its last course
constexpr int kGsvPerSentence = 4;
constexpr int kDopDecimals = 2;
// Mixed into the seed so that the receiver's errors and the sky do not repeat the numbers the
// driver drew.
constexpr uint64_t kReceiverStream = 0x9E3779B97F4A7C15ULL;
constexpr uint64_t kSkyStream = 0xD1B54A32D192ED03ULL;

} // namespace

DemoReceiver::DemoReceiver(uint64_t seed)
    : m_random(seed ^ kReceiverStream), m_sky(seed ^ kSkyStream), m_northError(1.2, 60), m_eastError(1.2, 60),
      m_altitudeError(2.5, 90) {}

QByteArray DemoReceiver::sentences(const DriveSample& truth) {
    const std::vector<SkySatellite> sky = m_sky.advance(m_nSeconds == 0 ? 0.0 : 1.0, truth.m_bSkyVisible);
    int used = 0;
    for (const SkySatellite& satellite : sky)
        used += satellite.m_bUsed ? 1 : 0;
    m_nSecondsWithSky = truth.m_bSkyVisible ? m_nSecondsWithSky + 1 : 0;
    m_bFix = used >= kMinUsedForFix && m_nSecondsWithSky > (m_bEverFixed ? kReacquireS : kColdStartS);
    m_bEverFixed = m_bEverFixed || m_bFix;
    measure(truth);
    if (!m_bFix) used = 0;
    m_dHdop = hdopFor(used) + m_random.uniform(-0.04, 0.04);

    QByteArray out = gga(truth.m_tUtc, used);
    if (m_nSeconds % kSatelliteEverySeconds == 0) out += gsa(sky, used) + gsv(sky);
    out += rmc(truth.m_tUtc);
    ++m_nSeconds;
    return out;
}

void DemoReceiver::measure(const DriveSample& truth) {
    const double north = m_northError.step(m_random, 1.0);
    const double east = m_eastError.step(m_random, 1.0);
    const double altitudeError = m_altitudeError.step(m_random, 1.0);
    if (!m_bFix) return; // the last position and altitude are held
    m_reported.m_pos = offsetBy(truth.m_pos, east, north);
    m_reported.m_dAltitudeM = truth.m_dAltitudeM + altitudeError;
    m_reported.m_dSpeedKmh = std::fabs(truth.m_dSpeedKmh + m_random.normal(0.0, 0.15));
    if (truth.m_dSpeedKmh >= kMovingKmh) {
        // The course comes from the receiver's velocity, which is noisier the slower the car.
        const double sigma = std::min(5.0, 0.3 + 15.0 / truth.m_dSpeedKmh);
        m_reported.m_dCourseDeg = std::fmod(truth.m_dCourseDeg + m_random.normal(0.0, sigma) + 360.0, 360.0);
    }
}

// $GPGGA,071400.00,4749.5210,N,01001.3140,E,1,09,0.95,655.3,M,47.9,M,,*hh
QByteArray DemoReceiver::gga(int64_t utc, int used) const {
    NmeaLineBuilder line("$GPGGA");
    line.utcTime(utc);
    if (m_bEverFixed)
        line.latitude(m_reported.m_pos.m_dPosLat).longitude(m_reported.m_pos.m_dPosLong);
    else
        line.empty(4);
    line.integer(m_bFix ? 1 : 0).integer(used, 2);
    if (m_bFix)
        line.fixed(m_dHdop, kDopDecimals);
    else
        line.text("99.99");
    if (m_bEverFixed)
        line.fixed(m_reported.m_dAltitudeM, 1).text("M").fixed(kGeoidSeparationM, 1).text("M");
    else
        line.empty(4);
    return line.empty(2).finish();
}

// $GPRMC,071400.00,A,4749.5210,N,01001.3140,E,25.31,187.40,170525,,,A*hh
QByteArray DemoReceiver::rmc(int64_t utc) const {
    NmeaLineBuilder line("$GPRMC");
    line.utcTime(utc).text(m_bFix ? "A" : "V");
    if (m_bEverFixed)
        line.latitude(m_reported.m_pos.m_dPosLat).longitude(m_reported.m_pos.m_dPosLong);
    else
        line.empty(4);
    if (m_bFix)
        line.fixed(m_reported.m_dSpeedKmh * kKnotsPerKmh, 2).fixed(m_reported.m_dCourseDeg, 2);
    else
        line.empty(2);
    return line.utcDate(utc).empty(2).text(m_bFix ? "A" : "N").finish();
}

// $GPGSA,A,3,02,05,07,13,15,20,24,29,30,,,,1.52,0.95,1.19*hh
QByteArray DemoReceiver::gsa(const std::vector<SkySatellite>& sky, int used) const {
    NmeaLineBuilder line("$GPGSA");
    line.text("A").integer(m_bFix ? 3 : 1);
    int fields = 0;
    for (const SkySatellite& satellite : sky) {
        if (!m_bFix || !satellite.m_bUsed) continue;
        line.integer(satellite.m_nPrn, 2);
        ++fields;
    }
    line.empty(12 - fields);
    if (!m_bFix || used == 0) return line.text("99.99").text("99.99").text("99.99").finish();
    return line.fixed(m_dHdop * 1.6, kDopDecimals)
        .fixed(m_dHdop, kDopDecimals)
        .fixed(m_dHdop * 1.25, kDopDecimals)
        .finish();
}

// $GPGSV,3,1,11,02,47,061,44,05,12,122,31,07,66,170,47,13,29,233,38*hh
QByteArray DemoReceiver::gsv(const std::vector<SkySatellite>& sky) {
    const int total = static_cast<int>(sky.size());
    const int messages = std::max(1, (total + kGsvPerSentence - 1) / kGsvPerSentence);
    QByteArray out;
    for (int message = 0; message < messages; ++message) {
        NmeaLineBuilder line("$GPGSV");
        line.integer(messages).integer(message + 1).integer(total, 2);
        for (int i = message * kGsvPerSentence; i < std::min(total, (message + 1) * kGsvPerSentence); ++i) {
            const SkySatellite& satellite = sky[i];
            line.integer(satellite.m_nPrn, 2)
                .integer(satellite.m_nElevationDeg, 2)
                .integer(satellite.m_nAzimuthDeg, 3);
            if (satellite.m_nSnr > 0)
                line.integer(satellite.m_nSnr, 2);
            else
                line.empty();
        }
        out += line.finish();
    }
    return out;
}
