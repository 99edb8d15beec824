#include "Commands.h"
#include "TemplateToolSupport.h"
#include "integrations/template/ExpandTemplate.h"

namespace {

QString usage() {
    return QStringLiteral("tarvik-tool template expand TEXT ") + TemplateToolState::kOptionsUsage +
           "\nFills the variables of the template TEXT (\"%Speed% km/h\", \"%Speed*1.609%\", \"%Lat:2%\") as "
           "the user\n"
           "pages, the navigation program's overlay and the live position address do, and prints the "
           "text.\n" +
           TemplateToolState::kOptionsHelp;
}

} // namespace

int runTemplateCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(usage());
    if (args.isEmpty()) return ctx.usageError("missing verb", usage());
    if (args.first() != QLatin1String("expand"))
        return ctx.usageError(ToolContext::unknownVerbProblem(args.first()), usage());
    const ToolOptions options(args.mid(1), TemplateToolState::valueOptions());
    if (!options.ok()) return ctx.usageError(options.error(), usage());
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), usage());
    TemplateToolState state;
    if (const auto exitCode = state.prepare(ctx, options, usage())) return *exitCode;
    ctx.out << ExpandTemplate(options.positional().first(), state.sources()) << '\n';
    return ToolContext::kOk;
}
