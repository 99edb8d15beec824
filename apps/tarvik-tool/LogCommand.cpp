#include "Commands.h"
#include "GpsToolSupport.h"
#include "gps/RecordingSettings.h"
#include "gps/logbook/Logbook.h"
#include "gps/logbook/TrackExport.h"
#include "settings/CRegistryKey.h"

#include <QFileInfo>
#include <QSaveFile>

namespace {

const char* const kUsage =
    "tarvik-tool log list [DIR]\n"
    "tarvik-tool log comment LOG TEXT\n"
    "tarvik-tool log export LOG (--kml|--csv|--gpx) OUT [--set AcceptAllTalkers=1]\n"
    "list: the logbook of the log files (*.txt) in DIR (default: \"LogDirectory\" in the root), by\n"
    "  name, as CSV: file,start,km,duration_s,comment (start from the file name, local time; km and\n"
    "  duration are the run distance and run time a replay of the log gives, with the root's\n"
    "  settings). A log whose header is still blank is measured once and the figures are written\n"
    "  into the header's reserved bytes, in place; logs that cannot take them are named on stderr.\n"
    "comment: writes TEXT (Latin-1, without ',', '*' or '$') as the comment into the header of LOG,\n"
    "  in place: the file keeps its size and every sentence its bytes.\n"
    "export: writes the epochs with a fix of LOG (time, position, altitude, speed, course, fix\n"
    "  quality, satellites, HDOP, as the sentences sent them) to OUT as KML (gx:Track), CSV or\n"
    "  GPX 1.1. --set AcceptAllTalkers=1 reads other talkers' fix sentences for this run.";

int listCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() > 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 0, 1), kUsage);
    CRegistryKey key;
    const QString folder = options.positional().isEmpty()
                               ? ctx.root.hostPath(readSetting(key, RecordingSettings::kLogDirectory))
                               : options.positional().first();
    if (!QFileInfo(folder).isDir()) return ctx.inputError("no log folder " + folder);
    const std::vector<LogbookEntry> entries = Logbook::list(folder, ctx.root, true);
    for (const LogbookEntry& entry : entries)
        if (!entry.m_strProblem.isEmpty()) ctx.err << "tarvik-tool: " << entry.m_strProblem << '\n';
    ctx.err.flush();
    ctx.out << QString::fromUtf8(Logbook::csv(entries));
    return ToolContext::kOk;
}

int commentCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 2)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 2), kUsage);
    const QString path = options.positional().at(0);
    if (!QFileInfo(path).isFile()) return ctx.inputError("no log file " + path);
    QString problem;
    if (!Logbook::writeComment(path, options.positional().at(1), ctx.root, problem))
        return ctx.inputError(problem);
    return ToolContext::kOk;
}

int exportCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--set"}, {"--kml", "--csv", "--gpx"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 2)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 2), kUsage);
    const int formats = int(options.has("--kml")) + int(options.has("--csv")) + int(options.has("--gpx"));
    if (formats != 1) return ctx.usageError("export takes exactly one of --kml, --csv and --gpx", kUsage);
    QString problem;
    const auto acceptAll = acceptAllTalkers(options, problem);
    if (!acceptAll) return ctx.usageError(problem, kUsage);
    const TrackExport::Format format = options.has("--gpx")   ? TrackExport::Format::Gpx
                                       : options.has("--kml") ? TrackExport::Format::Kml
                                                              : TrackExport::Format::Csv;
    const std::optional<QByteArray> bytes =
        TrackExport::exportLog(options.positional().at(0), format, *acceptAll);
    if (!bytes) return ctx.inputError("cannot read " + options.positional().at(0));
    QSaveFile out(options.positional().at(1));
    if (!out.open(QIODevice::WriteOnly) || out.write(*bytes) != bytes->size() || !out.commit())
        return ctx.inputError("cannot write " + out.fileName() + ": " + out.errorString());
    return ToolContext::kOk;
}

} // namespace

int runLogCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "list") return listCommand(ctx, args);
    if (verb == "comment") return commentCommand(ctx, args);
    if (verb == "export") return exportCommand(ctx, args);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
