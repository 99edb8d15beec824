#include "Commands.h"
#include "nav/poi/PoiConversion.h"
#include "nav/waypoints/WaypointFile.h"
#include "nav/waypoints/WaypointImport.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

const char* const kUsage =
    "tarvik-tool wpt read FILE\n"
    "       tarvik-tool wpt import FILE --into WPTFILE\n"
    "       tarvik-tool wpt gpx IN OUT\n"
    "read: the GoTo page's waypoint file as CSV rows lon,lat,name, as the page reads it "
    "(\"lon,lat,\\\"name\\\"\"\n"
    "  lines, ';' comments, lines of fewer than three fields left out).\n"
    "import: scans FILE line by line for free-form positions (\"Gipfel N 47°25.123 E 010°59.456\"), adds\n"
    "  those WPTFILE does not hold yet and saves WPTFILE as the page does (a missing one is created);\n"
    "  prints the added records as CSV lon,lat,name.\n"
    "gpx: converts between a waypoint file and the waypoints of a GPX file; the one ending in .gpx is\n"
    "  the GPX side.";

void printWaypoints(ToolContext& ctx, const Waypoints& waypoints) {
    ctx.printCsvRow({"lon", "lat", "name"});
    for (const Waypoint& w : waypoints)
        ctx.printCsvRow({ToolContext::number(w.m_dLon), ToolContext::number(w.m_dLat), w.m_strName});
}

std::optional<QByteArray> readAll(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    return file.readAll();
}

bool writeAll(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

int readCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1), kUsage);
    const auto bytes = readAll(args[0]);
    if (!bytes) return ctx.inputError("cannot read " + args[0]);
    printWaypoints(ctx, ReadWaypoints(*bytes));
    return ToolContext::kOk;
}

int importCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--into"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    const QString into = options.value("--into");
    if (into.isEmpty()) return ctx.usageError("--into WPTFILE is missing", kUsage);
    const auto bytes = readAll(options.positional()[0]);
    if (!bytes) return ctx.inputError("cannot read " + options.positional()[0]);
    Waypoints waypoints = LoadWaypointFile(into);
    const Waypoints added = ImportWaypoints(*bytes, waypoints);
    if (!writeAll(into, WriteWaypoints(waypoints))) return ctx.inputError("cannot write " + into);
    printWaypoints(ctx, added);
    return ToolContext::kOk;
}

int gpxCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 2) return ctx.usageError(ToolContext::argumentCountProblem(args, 2), kUsage);
    const auto isGpx = [](const QString& path) {
        return QFileInfo(path).suffix().toLower() == QLatin1String("gpx");
    };
    if (isGpx(args[0]) == isGpx(args[1]))
        return ctx.usageError("exactly one of IN and OUT must end in .gpx", kUsage);
    const auto bytes = readAll(args[0]);
    if (!bytes) return ctx.inputError("cannot read " + args[0]);
    QByteArray out;
    if (isGpx(args[0])) {
        QString error;
        const auto points = ReadNamedPois(*bytes, PoiFormat::Gpx, error);
        if (!points) return ctx.inputError(args[0] + ": " + error);
        out = WriteWaypoints(*points);
    } else {
        out = WriteNamedPois(ReadWaypoints(*bytes), PoiFormat::Gpx);
    }
    if (!writeAll(args[1], out)) return ctx.inputError("cannot write " + args[1]);
    return ToolContext::kOk;
}

} // namespace

int runWptCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "read") return readCommand(ctx, args);
    if (verb == "import") return importCommand(ctx, args);
    if (verb == "gpx") return gpxCommand(ctx, args);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
