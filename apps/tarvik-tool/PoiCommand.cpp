#include "Commands.h"
#include "GpsToolSupport.h"
#include "NumberArgs.h"
#include "nav/poi/NearestPois.h"
#include "nav/poi/PoiConversion.h"
#include "nav/poi/PoiFile.h"
#include "nav/poi/PoiName.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>
#include <climits>
#include <memory>
#include <optional>

namespace {

const char* const kUsage =
    "tarvik-tool poi read FILE\n"
    "       tarvik-tool poi nearest FILE... --lon X --lat Y --radius TEXT [--names] [--sort K]\n"
    "       tarvik-tool poi convert IN OUT\n"
    "read: the points of a POI file (.ov2, else .asc text) as the program lists them, one CSV row each:\n"
    "  lon,lat,name_offset,name (degrees; the byte position of the name in the file, 0 = none; the name\n"
    "  read there). Points the program drops are left out; the rows are sorted by longitude.\n"
    "nearest: the points of the files within the radius of (X, Y) as the nearest-POI page lists them:\n"
    "  km,course,name,file,index (course in whole degrees, the file's name, the point's row in 'read').\n"
    "  TEXT as the page offers it: \"25 km\", \"50 km\", \"100 km\", \"200 km\", \"all\". Names only with\n"
    "  --names. K is the page's sort key: 1 km, 2 course, 3 name (first four characters); negative for\n"
    "  descending; default 1.\n"
    "convert: every point of IN with its name into OUT, each in the format of its extension: .ov2\n"
    "  (type 2 records under skipper records, 1e-5 deg), .asc, .gpx (waypoints), .csv (lon,lat,name).\n"
    "  Names are written in Windows-1252 when they fit, else UTF-8. Points without a valid position\n"
    "  are left out. Prints {\"read\", \"written\"}.";

// A POI file of the command line as the program keeps one; false when it cannot be read.
bool loadFile(const QString& path, PoiFile& file) {
    const QFileInfo info(path);
    file.m_strName = info.fileName();
    file.m_strFolder = info.path();
    file.m_bEnabled = true;
    if (!info.isFile() || !info.isReadable()) return false;
    LoadPoiFile(file);
    return true;
}

// The sort key of --sort: 1, 2 or 3, or one of them negated.
std::optional<int> sortKey(const QString& text) {
    bool ok = false;
    const int key = text.toInt(&ok);
    if (!ok || key == 0 || key < -3 || key > 3) return std::nullopt;
    return key;
}

int nearestCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--lon", "--lat", "--radius", "--sort"}, {"--names"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().isEmpty())
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1, INT_MAX), kUsage);
    for (const char* required : {"--lon", "--lat", "--radius"})
        if (!options.has(required))
            return ctx.usageError(QStringLiteral("%1 is needed").arg(required), kUsage);
    const auto key = sortKey(options.value("--sort", "1"));
    if (!key)
        return ctx.usageError("--sort takes 1, 2, 3, -1, -2 or -3, not " + options.value("--sort"), kUsage);
    QString badText;
    const auto position = parseNumberArgs({options.value("--lon"), options.value("--lat")}, badText);
    if (!position) return ctx.usageError("not a number: " + badText, kUsage);

    std::vector<std::unique_ptr<PoiFile>> files;
    for (const QString& path : options.positional()) {
        files.push_back(std::make_unique<PoiFile>());
        if (!loadFile(path, *files.back())) return ctx.inputError("cannot read " + path);
    }
    std::vector<const PoiFile*> enabled;
    for (const auto& file : files)
        enabled.push_back(file.get());
    std::vector<PoiHit> hits = FindNearestPois(enabled, position->at(0), position->at(1),
                                               options.value("--radius"), options.has("--names"));
    SortPoiHits(hits, *key);
    CsvBlockWriter csv(ctx);
    csv.text("km,course,name,file,index").endRow();
    for (const PoiHit& hit : hits) {
        csv.number(hit.m_dDistance)
            .integer(hit.m_nCourse)
            .text(ToolContext::csvField(PoiNameText(hit.m_name)).toStdString());
        csv.text(ToolContext::csvField(hit.m_pFile->m_strName).toStdString()).integer(hit.m_nIndex).endRow();
    }
    return ToolContext::kOk;
}

int convertCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 2)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 2), kUsage);
    const QString in = options.positional()[0];
    const QString out = options.positional()[1];
    for (const QString& path : {in, out})
        if (!PoiFormatOf(path))
            return ctx.usageError("no POI format for " + path + " (.ov2, .asc, .gpx or .csv)", kUsage);
    QFile input(in);
    if (!input.open(QIODevice::ReadOnly)) return ctx.inputError("cannot read " + in);
    QString error;
    const auto points = ReadNamedPois(input.readAll(), *PoiFormatOf(in), error);
    if (!points) return ctx.inputError(in + ": " + error);
    const QByteArray bytes = WriteNamedPois(*points, *PoiFormatOf(out));
    QSaveFile output(out); // replaced as a whole or not at all
    if (!output.open(QIODevice::WriteOnly) || output.write(bytes) != bytes.size() || !output.commit())
        return ctx.inputError("cannot write " + out);
    const auto written = std::ranges::count_if(*points, IsWritablePoi);
    ctx.printJson({{"read", QString::number(points->size())}, {"written", QString::number(written)}});
    return ToolContext::kOk;
}

int readCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    PoiFile file;
    if (!loadFile(options.positional().first(), file)) return ctx.inputError("cannot read " + file.path());
    std::vector<uint32_t> offsets;
    for (const PoiEntry& entry : file.m_entries)
        offsets.push_back(entry.m_nNameOffset);
    const std::vector<QByteArray> names = ReadPoiNames(file.path(), offsets);
    CsvBlockWriter csv(ctx);
    csv.text("lon,lat,name_offset,name").endRow();
    for (size_t i = 0; i < file.m_entries.size(); ++i) {
        const PoiEntry& entry = file.m_entries[i];
        const QString name = PoiNameText(names[i]);
        csv.number(entry.m_dLon).number(entry.m_dLat).integer(entry.m_nNameOffset);
        csv.text(ToolContext::csvField(name).toStdString()).endRow();
    }
    return ToolContext::kOk;
}

} // namespace

int runPoiCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "read") return readCommand(ctx, args);
    if (verb == "nearest") return nearestCommand(ctx, args);
    if (verb == "convert") return convertCommand(ctx, args);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
