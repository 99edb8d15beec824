#include "demo/DriveSimulator.h"

#include "demo/SeededRandom.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

constexpr double kStepS = 0.1;
constexpr int kStepsPerSecond = 10;
constexpr double kKmhPerMs = 3.6;
constexpr double kLateralAccel = 2.0;   // m/s², a comfortable curve
constexpr double kPlannedBraking = 1.6; // m/s², what the driver plans with before slowing down
constexpr double kHardestBraking = 3.5; // m/s², never exceeded
constexpr double kReactionS = 2.0;      // the driver closes a speed difference in about this time
constexpr double kWhimFromMs = 8.0;     // below, in turns and at stops, the driver is exact
// A route that cannot be driven to its end (a leg without speed) ends here instead of never.
constexpr int64_t kMaxSteps = 6 * 3600 * kStepsPerSecond;

// Full throttle of a small car: about 2.5 m/s² from standstill, 1.1 m/s² at 100 km/h.
double accelerationLimit(double speedMs) {
    return 2.5 - 0.05 * speedMs;
}

// The speed (m/s) the driver aims at on every metre of the road: the posted speed times the
// driver's factor for that leg, slower in curves, and braked early enough for what comes next.
std::vector<double> aimedSpeeds(const RoutePath& path, SeededRandom& random) {
    std::map<const RouteLeg*, double> factors;
    const size_t metres = static_cast<size_t>(path.lengthM());
    std::vector<double> aim(metres + 1);
    for (size_t i = 0; i <= metres; ++i) {
        const RouteLeg& leg = path.legAt(static_cast<double>(i));
        auto found = factors.find(&leg);
        if (found == factors.end()) found = factors.emplace(&leg, random.uniform(0.92, 1.02)).first;
        const double curvature = std::fabs(path.curvatureAt(static_cast<double>(i)));
        const double curveSpeed = curvature > 0 ? std::sqrt(kLateralAccel / curvature) : HUGE_VAL;
        aim[i] = std::min(leg.m_dLimitKmh / kKmhPerMs * found->second, curveSpeed);
    }
    for (size_t i = metres; i-- > 0;)
        aim[i] = std::min(aim[i], std::sqrt(aim[i + 1] * aim[i + 1] + 2.0 * kPlannedBraking));
    return aim;
}

} // namespace

std::vector<DriveSample> simulateDrive(const RoutePath& path, uint64_t seed, int64_t startUtc) {
    SeededRandom random(seed);
    const std::vector<double> aim = aimedSpeeds(path, random);
    WanderingOffset whim(0.5, 15); // m/s: nobody holds a speed exactly
    const auto& stops = path.stops();
    size_t nextStop = 0;
    double s = 0;
    double speed = 0;     // m/s
    double standingS = 0; // left to stand at the current stop
    std::vector<DriveSample> samples;
    for (int64_t step = 0; step < kMaxSteps; ++step) {
        if (step % kStepsPerSecond == 0) {
            DriveSample sample;
            sample.m_tUtc = startUtc + step / kStepsPerSecond;
            sample.m_pos = path.positionAt(s);
            sample.m_dAltitudeM = path.altitudeAt(s);
            sample.m_dSpeedKmh = speed * kKmhPerMs;
            sample.m_dCourseDeg = path.headingAt(s);
            sample.m_bSkyVisible = !path.legAt(s).m_bTunnel;
            samples.push_back(sample);
        }
        if (standingS > 0) {
            standingS -= kStepS;
            if (standingS <= 0 && nextStop == stops.size()) break; // parked at the end
            continue;
        }
        // Look ahead by the time the driver takes to react.
        const double ahead = std::min(s + speed * kReactionS, path.lengthM());
        const double aimed = aim[static_cast<size_t>(ahead)];
        const double target = aimed > kWhimFromMs ? aimed + whim.step(random, kStepS) : aimed;
        double acceleration =
            std::clamp((target - speed) / kReactionS, -kHardestBraking, accelerationLimit(speed));
        if (nextStop < stops.size()) {
            const double gap = stops[nextStop].m_dAtM - s;
            if (gap < 0.5 && speed < 1.5) {
                s = stops[nextStop].m_dAtM;
                speed = 0;
                standingS = stops[nextStop].m_dNominalS * random.uniform(0.8, 1.25);
                ++nextStop;
                continue;
            }
            // Once the planned braking is needed, brake evenly to stand exactly at the stop.
            const double stopping = speed * speed / (2.0 * std::max(gap, 0.01));
            if (stopping >= kPlannedBraking) acceleration = -std::min(stopping, kHardestBraking);
        }
        speed = std::max(0.0, speed + acceleration * kStepS);
        s = std::min(s + speed * kStepS, path.lengthM());
    }
    return samples;
}
