#include "Commands.h"
#include "NumberArgs.h"
#include "nav/CoordinateText.h"

#include <limits>

namespace {

const char* const kUsage =
    "tarvik-tool coord format VALUE [--format N] (--lat|--lon)\n"
    "       tarvik-tool coord parse TEXT\n"
    "format writes a coordinate in decimal degrees in notation N: 0 dd°mm.mmm, 1 dd°mm'ss'', 2 dd.dddddd\n"
    "with hemisphere letter, 3 signed degrees; -1 (the default) uses the \"PosFormat\" setting, other "
    "values\n"
    "give an empty text. Prints {\"text\": ...}.\n"
    "parse reads a typed coordinate (N 48°07.407, E 011°34'12'', -11.5, W 8,5) and prints\n"
    "{\"ok\": ..., \"value\": degrees}; ok is false only for an empty text.";

int formatCommand(ToolContext& ctx, const ToolOptions& options) {
    const bool latitude = options.has(QStringLiteral("--lat"));
    if (options.positional().size() != 2)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 2), kUsage);
    if (latitude == options.has(QStringLiteral("--lon")))
        return ctx.usageError(QStringLiteral("either --lat or --lon is needed"), kUsage);
    QString badText;
    const auto value = parseNumberArgs(options.positional().mid(1), badText);
    if (!value) return ctx.inputError("not a number: " + badText);
    bool ok = false;
    const QString fromSettings = QString::number(static_cast<int>(PosFormat::FromSettings));
    const int format = options.value(QStringLiteral("--format"), fromSettings).toInt(&ok);
    if (!ok || format < std::numeric_limits<int8_t>::min() || format > std::numeric_limits<int8_t>::max())
        return ctx.inputError("not a notation number: " + options.value(QStringLiteral("--format")));
    ctx.printJson({{"text", ToolContext::jsonString(
                                FormatCoordinate(value->at(0), static_cast<PosFormat>(format), latitude))}});
    return ToolContext::kOk;
}

int parseCommand(ToolContext& ctx, const ToolOptions& options) {
    if (options.positional().size() != 2)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 2), kUsage);
    double value = 0.0;
    const bool ok = ParseCoordinate(options.positional().at(1), value);
    ctx.printJson({{"ok", ok ? QStringLiteral("true") : QStringLiteral("false")},
                   {"value", ToolContext::number(value)}});
    return ToolContext::kOk;
}

} // namespace

int runCoordCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {QStringLiteral("--format")},
                              {QStringLiteral("--lat"), QStringLiteral("--lon"), QStringLiteral("--help")});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = options.positional().value(0);
    if (verb == QLatin1String("format")) return formatCommand(ctx, options);
    if (verb == QLatin1String("parse")) return parseCommand(ctx, options);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
