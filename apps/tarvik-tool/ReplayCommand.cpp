#include "Commands.h"
#include "GpsToolSupport.h"
#include "gps/GpsSettings.h"
#include "gps/HeadlessReplay.h"
#include "gps/RecordingSettings.h"
#include "gps/sources/SourceSettings.h"
#include "settings/CRegistryKey.h"

#include <charconv>
#include <cmath>
#include <variant>

namespace {

const char* const kUsage =
    "tarvik-tool replay LOG [--now ISO8601] [--set NAME=VALUE ...]\n"
    "Runs one whole run of the GPS document over the recorded NMEA log LOG, as fast as possible:\n"
    "a source start with reset statistics (a new track log in \"LogDirectory\"), every sentence\n"
    "through the log writer, the interpreter and the epoch handling, then the shutdown saves.\n"
    "The clock starts at --now (default: the machine's time) and follows the recorded time\n"
    "stamps. --set stores a setting in the root's registry first (e.g. --set LogDelay=0).\n"
    "Prints one JSON object: run_time_s, run_km, moving_time_s, moving_km, tour_time_s, tour_km,\n"
    "max_speed_kmh, min_alt_m, max_alt_m, min_lon, max_lon, min_lat, max_lat, gradient_pct,\n"
    "epochs, valid_epochs, log_file (km, s, km/h, m, degrees, percent).";

using SettableValue = std::variant<const Setting<int32_t>*, const Setting<bool>*, const Setting<float>*,
                                   const Setting<double>*, const Setting<const char*>*>;

// The settings a replayed run reads.
const SettableValue kSettable[] = {
    &RecordingSettings::kSpeedLimit,
    &RecordingSettings::kMaxBreakMin,
    &RecordingSettings::kMinSpeedForAvr2,
    &RecordingSettings::kLogDelay,
    &RecordingSettings::kLogType,
    &RecordingSettings::kLogDirectory,
    &RecordingSettings::kTourTime,
    &RecordingSettings::kTour,
    &SourceSettings::kAutoReconnect,
    &SourceSettings::kAcceptAllTalkers,
    &GpsSettings::kAltitudeOffset,
    &GpsSettings::kAutoAltitudeOffset,
    &GpsSettings::kThresholdHeading,
    &GpsSettings::kLastLong,
    &GpsSettings::kLastLat,
};

QString nameOf(const SettableValue& value) {
    return std::visit([](auto* pSetting) { return pSetting->name(); }, value);
}

QString settableNames() {
    QStringList names;
    for (const SettableValue& value : kSettable)
        names << nameOf(value);
    return names.join(", ");
}

// The value of a --set text: integers and decimals as numbers, flags as 0 or 1, strings as they are.
bool parseValue(const QString& text, int32_t& value) {
    bool bOk = false;
    value = text.toInt(&bOk);
    return bOk;
}
bool parseValue(const QString& text, bool& value) {
    value = text == "1";
    return text == "0" || text == "1";
}
bool parseValue(const QString& text, double& value) {
    bool bOk = false;
    value = text.toDouble(&bOk);
    return bOk;
}
bool parseValue(const QString& text, float& value) {
    double wide = 0;
    if (!parseValue(text, wide)) return false;
    value = static_cast<float>(wide);
    return true;
}
bool parseValue(const QString& text, QString& value) {
    value = text;
    return true;
}

// Stores one NAME=VALUE; false with the reason in `error` when the name or the value is not one.
bool storeSetting(const QString& assignment, QString& error) {
    const QString name = assignment.section('=', 0, 0);
    const QString text = assignment.section('=', 1);
    for (const SettableValue& value : kSettable) {
        if (name.compare(nameOf(value), Qt::CaseInsensitive) != 0) continue;
        const bool bOk = std::visit(
            [&text](auto* pSetting) {
                typename std::remove_pointer_t<decltype(pSetting)>::Value parsed{};
                CRegistryKey key;
                return parseValue(text, parsed) && writeSetting(key, *pSetting, parsed);
            },
            value);
        if (!bOk) error = "cannot store " + assignment;
        return bOk;
    }
    error = "unknown setting '" + name + "'; known: " + settableNames();
    return false;
}

// The shortest text that reads back to the same float.
QString floatNumber(float value) {
    if (!std::isfinite(value)) return QStringLiteral("null");
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QString::fromLatin1(buffer, result.ptr - buffer);
}

void printSummary(ToolContext& ctx, const ReplaySummary& summary) {
    const TourStatistics& stats = summary.m_stats;
    ctx.printJson({
        {"run_time_s", QString::number(stats.m_nRunTime)},
        {"run_km", ToolContext::number(stats.m_dRunDistance)},
        {"moving_time_s", QString::number(stats.m_nMovingTime)},
        {"moving_km", ToolContext::number(stats.m_dMovingDistance)},
        {"tour_time_s", QString::number(stats.m_nTourTime)},
        {"tour_km", ToolContext::number(stats.m_dTourDistance)},
        {"max_speed_kmh", floatNumber(stats.m_fMaxSpeed)},
        {"min_alt_m", floatNumber(stats.m_fMinAltitude)},
        {"max_alt_m", floatNumber(stats.m_fMaxAltitude)},
        {"min_lon", ToolContext::number(stats.m_dMinLong)},
        {"max_lon", ToolContext::number(stats.m_dMaxLong)},
        {"min_lat", ToolContext::number(stats.m_dMinLat)},
        {"max_lat", ToolContext::number(stats.m_dMaxLat)},
        {"gradient_pct", floatNumber(stats.m_fGradient)},
        {"epochs", QString::number(summary.m_nEpochs)},
        {"valid_epochs", QString::number(summary.m_nValidEpochs)},
        {"log_file", ToolContext::jsonString(summary.m_strLogFile)},
    });
}

} // namespace

int runReplayCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const ToolOptions options(args, {"--now", "--set"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    auto clock = commandClock(options.value("--now"));
    if (!clock) return ctx.usageError(nowProblem(options), kUsage);
    for (const QString& assignment : options.values("--set")) {
        if (!assignment.contains('='))
            return ctx.usageError("--set needs NAME=VALUE, not '" + assignment + "'", kUsage);
        QString error;
        if (!storeSetting(assignment, error)) return ctx.usageError(error, kUsage);
    }
    RecordedLog log(options.positional().first());
    if (!log.ok()) return ctx.inputError("cannot read " + options.positional().first());
    const ReplaySummary summary = replayLog(ctx.root, *clock, log.bytes());
    if (!summary.m_strLogFailure.isEmpty()) return ctx.inputError(summary.m_strLogFailure);
    printSummary(ctx, summary);
    return ToolContext::kOk;
}
