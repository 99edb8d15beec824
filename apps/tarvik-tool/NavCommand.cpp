#include "Commands.h"
#include "NumberArgs.h"
#include "integrations/navbridge/DestinationHandOver.h"
#include "integrations/navbridge/NavProgramKind.h"
#include "integrations/navbridge/NavProgramLocation.h"
#include "integrations/navbridge/PeFileVersion.h"

#include <QDir>

namespace {

const char* const kUsage =
    "tarvik-tool nav kind --path PATH\n"
    "       tarvik-tool nav kind --title TITLE --class CLASS [--program EXE]\n"
    "       tarvik-tool nav navigate LON LAT NAME [--kind KIND] [--program PATH] [--start]\n"
    "       tarvik-tool nav fileversion EXE\n"
    "kind: the navigation program's kind {\"kind\"} from its path, or from a window's title and class\n"
    "  (0: not the navigation program's window; EXE gives the file version the title rules ask for).\n"
    "  Kinds: 1 falk (Falk, Marco Polo), 2 tomtom, 3 tomtom-sdk, 4 mn-pwc80, 5 mn (MobileNavigator\n"
    "  before 5), 6 mn5, 7 navit, 8 system (the desktop's geo: handler).\n"
    "navigate: hands a destination (degrees, longitude first) to the program of KIND (a number or a\n"
    "  name; default: the kind of PATH) at PATH (default: \"MNProgam\" of the settings) in the root and\n"
    "  prints {\"files\", \"command\"}: the files written, relative to the root, and the program line\n"
    "  (Navit: the D-Bus call, which is made). Programs are started only with --start.\n"
    "fileversion: the file version of a Windows executable {\"major\", \"minor\", \"build\", \"revision\"}.\n"
    "PATH and EXE are paths of the device, \"\\\" or \"/\" separated.";

int majorVersion(const ToolContext& ctx, const QString& exe) {
    if (exe.isEmpty()) return 0;
    const auto version = readPeFileVersionOfFile(ctx.root.hostPath(exe));
    return version ? version->major : 0;
}

int printKind(ToolContext& ctx, int kind) {
    ctx.printJson({{"kind", QString::number(kind)}});
    return ToolContext::kOk;
}

int kindCommand(ToolContext& ctx, const ToolOptions& options) {
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional().mid(1), 0), kUsage);
    const QString program = options.value(QStringLiteral("--program"));
    if (options.has(QStringLiteral("--path"))) {
        if (options.has(QStringLiteral("--title")) || options.has(QStringLiteral("--class")))
            return ctx.usageError(QStringLiteral("--path goes without --title and --class"), kUsage);
        const QString path =
            options.value(QStringLiteral("--path")).replace(QLatin1Char('/'), QLatin1Char('\\'));
        return printKind(ctx, NavProgramKind::fromPath(path, [&] { return majorVersion(ctx, path); }));
    }
    if (!options.has(QStringLiteral("--title")) || !options.has(QStringLiteral("--class")))
        return ctx.usageError(QStringLiteral("--path, or --title with --class, is needed"), kUsage);
    const auto kind = NavProgramKind::fromWindow(options.value(QStringLiteral("--title")),
                                                 options.value(QStringLiteral("--class")),
                                                 [&] { return majorVersion(ctx, program); });
    return printKind(ctx, kind.value_or(NavProgramKind::kUnknown));
}

QString jsonList(const QStringList& items) {
    QStringList quoted;
    for (const QString& item : items)
        quoted.append(ToolContext::jsonString(item));
    return QLatin1Char('[') + quoted.join(QLatin1Char(',')) + QLatin1Char(']');
}

int navigateCommand(ToolContext& ctx, const ToolOptions& options) {
    const QStringList pos = options.positional();
    if (pos.size() != 4) return ctx.usageError(ToolContext::argumentCountProblem(pos.mid(1), 3, 3), kUsage);
    QString bad;
    const auto numbers = parseNumberArgs(pos.mid(1, 2), bad);
    if (!numbers) return ctx.inputError("not a number: " + bad);
    const QString program =
        options.has(QStringLiteral("--program"))
            ? options.value(QStringLiteral("--program")).replace(QLatin1Char('/'), QLatin1Char('\\'))
            : navProgramPath();
    int kind = NavProgramKind::fromPath(program, [&] { return majorVersion(ctx, program); });
    if (options.has(QStringLiteral("--kind"))) {
        const auto named = NavProgramKind::fromName(options.value(QStringLiteral("--kind")));
        if (!named) return ctx.usageError("unknown kind: " + options.value(QStringLiteral("--kind")), kUsage);
        kind = *named;
    }
    DestinationHandOver::Services services;
    if (options.has(QStringLiteral("--start"))) services.start = &DestinationHandOver::StartDetached;
    const HandOverResult result = DestinationHandOver(ctx.root, services)
                                      .Navigate(kind, program, numbers->at(0), numbers->at(1), pos[3]);
    if (!result.bOk) return ctx.inputError(result.error);
    QStringList files;
    for (const QString& file : result.files)
        files.append(QDir(ctx.root.hostFolder()).relativeFilePath(file));
    ctx.printJson({{"files", jsonList(files)}, {"command", ToolContext::jsonString(result.command)}});
    return ToolContext::kOk;
}

int fileVersionCommand(ToolContext& ctx, const QStringList& pos) {
    if (pos.size() != 2) return ctx.usageError(ToolContext::argumentCountProblem(pos.mid(1), 1, 1), kUsage);
    const auto version = readPeFileVersionOfFile(ctx.root.hostPath(pos[1]));
    if (!version)
        return ctx.inputError("no file version (not a Windows executable, or cut short): " + pos[1]);
    ctx.printJson({{"major", QString::number(version->major)},
                   {"minor", QString::number(version->minor)},
                   {"build", QString::number(version->build)},
                   {"revision", QString::number(version->revision)}});
    return ToolContext::kOk;
}

} // namespace

int runNavCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {"--path", "--title", "--class", "--program", "--kind"},
                              {"--start", "--help"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = options.positional().value(0);
    if (verb == QLatin1String("kind")) return kindCommand(ctx, options);
    if (verb == QLatin1String("navigate")) return navigateCommand(ctx, options);
    if (verb == QLatin1String("fileversion")) return fileVersionCommand(ctx, options.positional());
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
