#include "Commands.h"
#include "GpsToolSupport.h"
#include "gps/GpsSettings.h"
#include "gps/TrackLogReader.h"

#include "nav/track/TrackFiles.h"

#include <QFile>
#include <QSaveFile>

namespace {

const char* const kUsage =
    "tarvik-tool track read FILE [--details] [--now ISO8601] [--set AcceptAllTalkers=1]\n"
    "read: reads a recorded NMEA log into track points, one CSV row each:\n"
    "  time,lon,lat,valid,hdop,sats,alt,speed (local time with its offset, degrees, metres with the\n"
    "  altitude offset of the root's settings, km/h). Without --details only points with a fix are\n"
    "  kept and quality, satellites, HDOP and speed stay 0. Times take the date of the device clock,\n"
    "  which --now fixes (default: the machine's). --set AcceptAllTalkers=1 reads the fix sentences\n"
    "  of other talkers ($GN, $GL, $GA, $GB, $IN) as GPS ones, for this run (default: the stored setting).\n"
    "tarvik-tool track tk read FILE\n"
    "tarvik-tool track tk write OUT\n"
    "tarvik-tool track gpx IN OUT\n"
    "tk read: a .tk track file (or a log, .txt, or a GPX file) as the track page lists it: CSV\n"
    "  index,lat,lon,km with the distance along the track.\n"
    "tk write: writes CSV rows lat,lon from stdin (a header row is allowed) as a .tk track file.\n"
    "gpx: converts a track between .tk or a log (.txt) and GPX (tracks, then routes, as one track);\n"
    "  the one ending in .gpx is the GPX side.";

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

LogPositionReader logPositions(const DeviceClock& clock) {
    return [&clock](QIODevice& file, TrackVertices& track) {
        GpsFix fix;
        loadGpsFixStart(fix, clock);
        std::vector<TrackPoint> points;
        if (!ReadFromFile(&file, points, fix, clock, false)) return false;
        for (const TrackPoint& p : points)
            track.push_back({p.m_dLong, p.m_dLat});
        return true;
    };
}

int tkReadCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1), kUsage);
    const auto clock = commandClock({});
    TrackVertices track;
    QString error;
    if (!LoadTrackFile(args[0], logPositions(*clock), track, error)) return ctx.inputError(error);
    const std::vector<double> km = RunningKm(track);
    CsvBlockWriter csv(ctx);
    csv.text("index,lat,lon,km").endRow();
    for (size_t i = 0; i < track.size(); ++i)
        csv.integer(static_cast<long long>(i))
            .number(track[i].m_dLat)
            .number(track[i].m_dLon)
            .number(km[i])
            .endRow();
    return ToolContext::kOk;
}

int tkWriteCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1), kUsage);
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) return ctx.inputError("cannot read stdin");
    TrackVertices track;
    int lineNumber = 0;
    while (!input.atEnd()) {
        const QByteArray line = input.readLine().trimmed();
        ++lineNumber;
        if (line.isEmpty() || (lineNumber == 1 && line.startsWith("lat"))) continue;
        const QList<QByteArray> fields = line.split(',');
        bool latOk = false, lonOk = false;
        const double lat = fields.value(0).toDouble(&latOk), lon = fields.value(1).toDouble(&lonOk);
        if (fields.size() != 2 || !latOk || !lonOk)
            return ctx.inputError(QStringLiteral("line %1: not lat,lon").arg(lineNumber));
        track.push_back({lon, lat});
    }
    QSaveFile out(args[0]);
    const QByteArray bytes = WriteTk(track);
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit())
        return ctx.inputError("cannot write " + args[0]);
    return ToolContext::kOk;
}

int gpxCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 2) return ctx.usageError(ToolContext::argumentCountProblem(args, 2), kUsage);
    const bool inGpx = TrackFileKindOf(args[0]) == TrackFileKind::Gpx;
    if (inGpx == (TrackFileKindOf(args[1]) == TrackFileKind::Gpx))
        return ctx.usageError("exactly one of IN and OUT must end in .gpx", kUsage);
    if (TrackFileKindOf(args[1]) == TrackFileKind::Log)
        return ctx.usageError("a log (.txt) is never written", kUsage);
    const auto clock = commandClock({});
    TrackVertices track;
    QString error;
    if (!LoadTrackFile(args[0], logPositions(*clock), track, error)) return ctx.inputError(error);
    if (!SaveTrackFile(args[1], track)) return ctx.inputError("cannot write " + args[1]);
    return ToolContext::kOk;
}

} // namespace

int runTrackCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "read") return readCommand(ctx, args);
    if (verb == "gpx") return gpxCommand(ctx, args);
    if (verb == "tk") {
        const QString tkVerb = args.isEmpty() ? QString() : args.takeFirst();
        if (tkVerb == "read") return tkReadCommand(ctx, args);
        if (tkVerb == "write") return tkWriteCommand(ctx, args);
        return ctx.usageError(ToolContext::unknownVerbProblem("tk " + tkVerb), kUsage);
    }
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
