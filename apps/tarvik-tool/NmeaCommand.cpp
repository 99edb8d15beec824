#include "Commands.h"
#include "GpsToolSupport.h"
#include "gps/GpsSettings.h"
#include "gps/LogLineSplitter.h"
#include "gps/NmeaInterpreter.h"
#include "gps/SyntheticGga.h"
#include "gps/TalkerRewrite.h"

#include <QDateTime>
#include <QFile>

namespace {

const char* const kUsage =
    "tarvik-tool nmea parse [FILE|-] [--now ISO8601] [--source N] [--set AcceptAllTalkers=1]\n"
    "       tarvik-tool nmea gga --lon X --lat Y --time ISO8601 --valid N --sats N\n"
    "parse: feeds each line to the interpreter and prints one CSV row per line with the GPS state\n"
    "  after it: line,code,lon,lat,time,valid,sats,hdop,alt,speed,course,alt_offset (degrees,\n"
    "  local time with its offset, metres, km/h, degrees). --now fixes the device clock (default:\n"
    "  the machine's), --source the source index (0-9 serial ports, default 1). Settings come from\n"
    "  the root's registry; --set AcceptAllTalkers=1 reads other talkers' fix sentences for this run.\n"
    "  Lines end at LF, CR LF or CR, as every log reader cuts them. The machine's clock is never set.\n"
    "gga: prints the $GPGGA sentence that stands in for a receiver (degrees, the time with its\n"
    "  offset, fix quality and satellites).";

int parseCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--now", "--source", "--set"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() > 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    const auto clock = commandClock(options.value("--now"));
    if (!clock) return ctx.usageError(nowProblem(options), kUsage);
    bool bSourceOk = false;
    const uint source = options.value("--source", "1").toUInt(&bSourceOk);
    if (!bSourceOk || source > 255)
        return ctx.usageError(
            "--source needs a number from 0 to 255, not '" + options.value("--source") + "'", kUsage);

    QString problem;
    const auto acceptAll = acceptAllTalkers(options, problem);
    if (!acceptAll) return ctx.usageError(problem, kUsage);

    const QString path = options.positional().value(0, "-");
    QFile file(path);
    const bool bOpened = path == "-" ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!bOpened) return ctx.inputError("cannot read " + path);

    FixedDeviceClock deviceClock = *clock;
    GpsFix fix;
    loadGpsFixStart(fix, deviceClock);
    fix.m_nSource = static_cast<uint8_t>(source);
    NmeaInterpreter interpreter(deviceClock);
    CsvBlockWriter csv(ctx);
    csv.text("line,code,lon,lat,time,valid,sats,hdop,alt,speed,course,alt_offset").endRow();
    LogLineSplitter lines(file);
    std::span<char> line;
    for (long long lineNumber = 1; lines.next(line); ++lineNumber) {
        if (*acceptAll) rewriteTalkerToGp(line.data(), static_cast<int>(line.size()));
        size_t length = line.size();
        while (length > 0 && (line[length - 1] == '\n' || line[length - 1] == '\r'))
            --length;
        const uint16_t code = interpreter.interpret({line.data(), length}, fix);
        if (code > GpsChange::kUnderstood) fix.m_nPendingChanges |= code;
        csv.integer(lineNumber).integer(code).number(fix.m_dPosLong).number(fix.m_dPosLat);
        csv.localTime(fix.m_tFixTime, deviceClock.localOffset())
            .integer(fix.m_nValid)
            .integer(fix.m_nSatellites);
        csv.number(fix.m_fHdop).number(fix.m_fAltitude).number(fix.m_fSpeed).number(fix.m_fCourse);
        csv.integer(fix.m_nAltitudeOffset).endRow();
    }
    return ToolContext::kOk;
}

// Each reader names the option when its value is wrong.
std::optional<QString> readNumber(const ToolOptions& options, const char* name, double low, double high,
                                  double& value) {
    bool bOk = false;
    value = options.value(name).toDouble(&bOk);
    if (bOk && value >= low && value <= high) return std::nullopt;
    return QStringLiteral("%1 needs a number from %2 to %3, not '%4'")
        .arg(name)
        .arg(low)
        .arg(high)
        .arg(options.value(name));
}

std::optional<QString> readByte(const ToolOptions& options, const char* name, uint8_t& value) {
    bool bOk = false;
    const uint number = options.value(name).toUInt(&bOk);
    value = static_cast<uint8_t>(number);
    if (bOk && number <= 255) return std::nullopt;
    return QStringLiteral("%1 needs a number from 0 to 255, not '%2'").arg(name, options.value(name));
}

int ggaCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--lon", "--lat", "--time", "--valid", "--sats"});
    GpsFix fix;
    const QDateTime time = QDateTime::fromString(options.value("--time"), Qt::ISODate);
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (!options.positional().isEmpty())
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 0), kUsage);
    for (const auto& problem :
         {readNumber(options, "--lon", -180, 180, fix.m_dPosLong),
          readNumber(options, "--lat", -90, 90, fix.m_dPosLat), readByte(options, "--valid", fix.m_nValid),
          readByte(options, "--sats", fix.m_nSatellites)})
        if (problem) return ctx.usageError(*problem, kUsage);
    if (!time.isValid())
        return ctx.usageError("--time needs an ISO 8601 time, not '" + options.value("--time") + "'", kUsage);
    const int32_t offset = time.offsetFromUtc();
    fix.m_tFixTime = time.toSecsSinceEpoch() + offset;
    ctx.out << QString::fromLatin1(buildSyntheticGga(fix, offset));
    return ToolContext::kOk;
}

} // namespace

int runNmeaCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "parse") return parseCommand(ctx, args);
    if (verb == "gga") return ggaCommand(ctx, args);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
