#include "Commands.h"
#include "NumberArgs.h"
#include "nav/PosFormat.h"
#include "nav/goto/ApproachBeep.h"
#include "nav/goto/CalcGotoPos.h"
#include "nav/goto/GoToReading.h"
#include "nav/goto/TypedTarget.h"
#include "nav/goto/VantrelText.h"

namespace {

const char* const kUsage =
    "tarvik-tool goto show --from LON,LAT --to LON,LAT --speed KMH --heading DEG [--north]\n"
    "       tarvik-tool goto calc --lat TEXT --lon TEXT --course DEG --km D\n"
    "       tarvik-tool goto calc --lat TEXT --lon TEXT --to-lat TEXT --to-lon TEXT\n"
    "       tarvik-tool goto vantrel LON LAT\n"
    "show: the GoTo page's texts for a GPS position (degrees) and a target: {\"field1\", \"field2\",\n"
    "  \"field3\", \"arrow_deg\", \"beep\": {\"hz\", \"ms\", \"tones\"}}; --north draws the arrow relative "
    "to\n"
    "  north. A target with a coordinate of 0 is no target: the fields are empty, arrow and beep null.\n"
    "calc: the \"Calc Goto Pos\" dialog. Forward prints {\"lat\", \"lon\"} (in the root's \"PosFormat\" "
    "when\n"
    "  it is a degree notation, else decimal degrees) and {\"lat_deg\", \"lon_deg\"}; backward prints\n"
    "  {\"km\", \"course\"} as \"%.03f\" texts. TEXT in any notation the target fields read.\n"
    "vantrel: the splitter driver's simulation command for a target.";

std::optional<QList<double>> pair(const QString& text, QString& bad) {
    const auto values = parseNumberArgs(text.split(','), bad);
    if (values && values->size() == 2) return values;
    bad = text;
    return std::nullopt;
}

int showCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--from", "--to", "--speed", "--heading"}, {"--north"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (!options.positional().isEmpty())
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 0), kUsage);
    for (const char* name : {"--from", "--to", "--speed", "--heading"})
        if (!options.has(name)) return ctx.usageError(QStringLiteral("%1 is missing").arg(name), kUsage);
    QString bad;
    const auto from = pair(options.value("--from"), bad);
    const auto to = from ? pair(options.value("--to"), bad) : std::nullopt;
    const auto motion =
        to ? parseNumberArgs({options.value("--speed"), options.value("--heading")}, bad) : std::nullopt;
    if (!motion) return ctx.inputError("not a number or LON,LAT: " + bad);
    const bool toNorth = options.has("--north");
    if (to->at(0) == 0 || to->at(1) == 0) {
        ctx.printJson({{"field1", "\"\""},
                       {"field2", "\"\""},
                       {"field3", "\"\""},
                       {"arrow_deg", "null"},
                       {"beep", "null"}});
        return ToolContext::kOk;
    }
    const GoToReading r =
        ReadGoTo(from->at(0), from->at(1), to->at(0), to->at(1), motion->at(0), motion->at(1), toNorth);
    const ApproachBeep beep = ApproachBeepFor(r.m_dDistanceKm, r.m_dCourseDeg, motion->at(1), toNorth);
    const QString beepJson = QStringLiteral("{\"hz\":%1,\"ms\":%2,\"tones\":%3}")
                                 .arg(beep.m_nFrequencyHz)
                                 .arg(beep.m_nDurationMs)
                                 .arg(beep.m_nTones);
    ctx.printJson({{"field1", ToolContext::jsonString(r.m_strField1)},
                   {"field2", ToolContext::jsonString(r.m_strField2)},
                   {"field3", ToolContext::jsonString(r.m_strField3)},
                   {"arrow_deg", ToolContext::number(r.m_dArrowDeg)},
                   {"beep", beepJson}});
    return ToolContext::kOk;
}

int calcCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--lat", "--lon", "--course", "--km", "--to-lat", "--to-lon"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (!options.positional().isEmpty())
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 0), kUsage);
    const bool forward = options.has("--course") && options.has("--km");
    const bool backward = options.has("--to-lat") && options.has("--to-lon");
    if (!options.has("--lat") || !options.has("--lon") || forward == backward)
        return ctx.usageError("give --lat and --lon with either --course and --km or --to-lat and --to-lon",
                              kUsage);
    if (backward) {
        const auto result = CalcBackward(options.value("--lat"), options.value("--lon"),
                                         options.value("--to-lat"), options.value("--to-lon"));
        if (!result) return ctx.inputError("a coordinate is empty");
        ctx.printJson({{"km", ToolContext::jsonString(result->m_strDistance)},
                       {"course", ToolContext::jsonString(result->m_strCourse)}});
        return ToolContext::kOk;
    }
    QString bad;
    const auto n = parseNumberArgs({options.value("--course"), options.value("--km")}, bad);
    if (!n) return ctx.inputError("not a number: " + bad);
    const auto result = CalcForward(options.value("--lat"), options.value("--lon"), n->at(0), n->at(1),
                                    DegreeNotation(readPosFormat()));
    if (!result) return ctx.inputError("a coordinate is empty");
    ctx.printJson({{"lat", ToolContext::jsonString(result->m_strLat)},
                   {"lon", ToolContext::jsonString(result->m_strLon)},
                   {"lat_deg", ToolContext::number(result->m_position.m_dPosLat)},
                   {"lon_deg", ToolContext::number(result->m_position.m_dPosLong)}});
    return ToolContext::kOk;
}

int vantrelCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 2) return ctx.usageError(ToolContext::argumentCountProblem(args, 2), kUsage);
    QString bad;
    const auto n = parseNumberArgs(args, bad);
    if (!n) return ctx.inputError("not a number: " + bad);
    ctx.out << VantrelSimulationText(n->at(0), n->at(1), true) << '\n';
    return ToolContext::kOk;
}

} // namespace

int runGotoCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "show") return showCommand(ctx, args);
    if (verb == "calc") return calcCommand(ctx, args);
    if (verb == "vantrel") return vantrelCommand(ctx, args);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
