#include "Commands.h"
#include "GpsToolSupport.h"
#include "gps/GpsSettings.h"
#include "gps/TrackLogReader.h"

#include <QFile>

namespace {

const char* const kUsage =
    "tarvik-tool track read FILE [--details] [--now ISO8601] [--set AcceptAllTalkers=1]\n"
    "read: reads a recorded NMEA log into track points, one CSV row each:\n"
    "  time,lon,lat,valid,hdop,sats,alt,speed (local time with its offset, degrees, metres with the\n"
    "  altitude offset of the root's settings, km/h). Without --details only points with a fix are\n"
    "  kept and quality, satellites, HDOP and speed stay 0. Times take the date of the device clock,\n"
    "  which --now fixes (default: the machine's). --set AcceptAllTalkers=1 reads the fix sentences\n"
    "  of other talkers ($GN, $GL, $GA, $GB, $IN) as GPS ones, for this run (default: the stored setting).";

int readCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--now", "--set"}, {"--details"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    const auto clock = commandClock(options.value("--now"));
    if (!clock) return ctx.usageError(nowProblem(options), kUsage);
    QString problem;
    const auto acceptAll = acceptAllTalkers(options, problem);
    if (!acceptAll) return ctx.usageError(problem, kUsage);
    QFile file(options.positional().first());
    if (!file.open(QIODevice::ReadOnly)) return ctx.inputError("cannot read " + file.fileName());

    GpsFix fix;
    loadGpsFixStart(fix, *clock);
    std::vector<TrackPoint> points;
    if (!ReadFromFile(&file, points, fix, *clock, options.has("--details"), *acceptAll))
        return ctx.inputError("cannot rewind " + file.fileName());
    CsvBlockWriter csv(ctx);
    csv.text("time,lon,lat,valid,hdop,sats,alt,speed").endRow();
    for (const TrackPoint& point : points) {
        csv.localTime(point.m_tTime, clock->localOffset()).number(point.m_dLong).number(point.m_dLat);
        csv.integer(point.m_nValid).number(point.m_fHdop).integer(point.m_nSatellites);
        csv.number(point.m_fAltitude).number(point.m_fSpeed).endRow();
    }
    return ToolContext::kOk;
}

} // namespace

int runTrackCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "read") return readCommand(ctx, args);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
