#include "Commands.h"
#include "MapToolSupport.h"
#include "NumberArgs.h"
#include "maps/CMapCatalogue.h"
#include "maps/MapImport.h"
#include "maps/MapPaths.h"
#include "maps/WorldFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace {

const char* const kUsage =
    "tarvik-tool map scan DIR [--current IMAGE]\n"
    "       tarvik-tool map best DIR --lon X --lat Y --mpp M [--current IMAGE] [--scores]\n"
    "       tarvik-tool map import FILE [--image IMG] [--utm ZONE]\n"
    "       tarvik-tool map export KAL (--ozi|--world) OUT\n"
    "The catalogue of the calibrated maps in DIR, built as the map view builds it: from DIR/cache.ini,\n"
    "or from the .kal files, after which cache.ini is written (delete it to rescan). IMAGE, a file name\n"
    "in DIR, is the current map. scan prints the catalogue as CSV: index, file, width, height, points,\n"
    "min_lon, min_lat, max_lon, max_lat, m_per_px, current. best chooses the map for the view centred on\n"
    "X, Y (decimal degrees) at M metres per screen pixel, as the automatic map change does "
    "(\"AutoLoadNext\"\n"
    "of the settings), and prints {\"file\", \"score\", \"contains\"}; with --scores the sorted catalogue\n"
    "as CSV: file, score, contains.\n"
    "import reads an OziExplorer .map (WGS 84 only; of more than four points the four spanning the\n"
    "largest area are fitted) or a world file (.jgw .pgw .gfw .bpw .tfw .wld: degrees, Web Mercator\n"
    "metres, or UTM metres of --utm ZONE such as 32N), writes the .kal beside the image and prints the\n"
    "fit as \"kal fit\" does, with the residual of every point of the file; then, where the file's own\n"
    "projection is known, the fit's distance from it at the centre and the edge midpoints top, right,\n"
    "bottom, left (a world file's points are the four corners; a map of UTM grid points adds the\n"
    "corners before the centre). export writes a\n"
    "calibration as an OziExplorer .map, or as a world file in degrees (two or three points only).";

// A view without a screen that shows one fixed spot.
class CToolMapHost : public CMapViewHost {
public:
    MapViewSpot m_spot;
    MapViewSpot ShownSpot() const override { return m_spot; }
};

QString boolText(bool value) {
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

int scan(ToolContext& ctx, CMapCatalogue& catalogue) {
    ctx.printCsvRow({"index", "file", "width", "height", "points", "min_lon", "min_lat", "max_lon", "max_lat",
                     "m_per_px", "current"});
    int index = 0;
    for (const auto& map : catalogue.Maps()) {
        ctx.printCsvRow({QString::number(index++), MapPaths::FileNamePart(map->MapFile()),
                         QString::number(map->MapSize().cx), QString::number(map->MapSize().cy),
                         QString::number(map->PointCount()), ToolContext::number(map->MinLong()),
                         ToolContext::number(map->MinLat()), ToolContext::number(map->MaxLong()),
                         ToolContext::number(map->MaxLat()), ToolContext::number(map->MetersPerPixel()),
                         map.get() == catalogue.CurrentMap() ? "1" : "0"});
    }
    return ToolContext::kOk;
}

int best(ToolContext& ctx, const ToolOptions& options, CToolMapHost& host, CMapCatalogue& catalogue) {
    const QStringList names = {QStringLiteral("--lon"), QStringLiteral("--lat"), QStringLiteral("--mpp")};
    QStringList texts;
    for (const QString& name : names) {
        if (!options.has(name)) return ctx.usageError("best needs " + name, kUsage);
        texts << options.value(name);
    }
    QString badText;
    const auto n = parseNumberArgs(texts, badText);
    if (!n) return ctx.inputError("not a number: " + badText);
    if (catalogue.Maps().empty()) return ctx.inputError("no calibrated maps in " + options.positional()[1]);
    host.m_spot = MapViewSpot{n->at(0), n->at(1), n->at(2)};
    catalogue.SelectBestMap();
    if (options.has(QStringLiteral("--scores"))) {
        ctx.printCsvRow({"file", "score", "contains"});
        for (const auto& map : catalogue.Maps())
            ctx.printCsvRow({MapPaths::FileNamePart(map->MapFile()), ToolContext::number(map->Score()),
                             boolText(map->Contains(n->at(0), n->at(1)))});
        return ToolContext::kOk;
    }
    const MapCalibration* current = catalogue.CurrentMap();
    if (!current) return ctx.inputError("no map chosen: the automatic map change (AutoLoadNext) is off");
    ctx.printJson({{"file", ToolContext::jsonString(MapPaths::FileNamePart(current->MapFile()))},
                   {"score", ToolContext::number(current->Score())},
                   {"contains", boolText(current->Contains(n->at(0), n->at(1)))}});
    return ToolContext::kOk;
}

int import(ToolContext& ctx, const ToolOptions& options, const QString& file) {
    const QString suffix = QFileInfo(file).suffix().toLower();
    const bool ozi = suffix == QLatin1String("map");
    const QStringList worldSuffixes = {"jgw", "pgw", "gfw", "bpw", "tfw", "wld"};
    if (!ozi && !worldSuffixes.contains(suffix))
        return ctx.inputError("not an OziExplorer .map or a world file: " + file);
    if (ozi && options.has(QStringLiteral("--utm")))
        return ctx.usageError(QStringLiteral("--utm goes with world files only"), kUsage);
    MapImport result;
    QString error;
    const QString image = options.value(QStringLiteral("--image"));
    const bool imported =
        ozi ? ImportOziMap(file, image, result, error)
            : ImportWorldFile(file, image, options.value(QStringLiteral("--utm")), result, error);
    if (!imported) return ctx.inputError(file + ": " + error);
    if (!result.calibration.SaveCalibration())
        return ctx.inputError("cannot write the calibration of " + result.calibration.MapFile());
    printCalibration(ctx, result.calibration, result.quality);
    return ToolContext::kOk;
}

int exportCalibration(ToolContext& ctx, const ToolOptions& options, const QString& kal, const QString& out) {
    const bool ozi = options.has(QStringLiteral("--ozi"));
    if (ozi == options.has(QStringLiteral("--world")))
        return ctx.usageError(QStringLiteral("export needs either --ozi or --world"), kUsage);
    MapCalibration map;
    if (!loadCalibrationBeside(kal, std::nullopt, map))
        return ctx.inputError(kal + " does not load as a calibration");
    const std::optional<QByteArray> bytes = ozi ? WriteOziMap(map) : WriteWorldFile(map);
    if (!bytes)
        return ctx.inputError(
            QStringLiteral("a world file holds two or three points (affine), not %1").arg(map.PointCount()));
    QSaveFile file(out);
    if (!file.open(QIODevice::WriteOnly) || file.write(*bytes) != bytes->size() || !file.commit())
        return ctx.inputError("cannot write " + out);
    return ToolContext::kOk;
}

} // namespace

int runMapCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args,
                              {QStringLiteral("--current"), QStringLiteral("--lon"), QStringLiteral("--lat"),
                               QStringLiteral("--mpp"), QStringLiteral("--image"), QStringLiteral("--utm")},
                              {QStringLiteral("--help"), QStringLiteral("--scores"), QStringLiteral("--ozi"),
                               QStringLiteral("--world")});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QStringList pos = options.positional();
    const QString verb = pos.value(0);
    const bool importVerb = verb == QLatin1String("import"), exportVerb = verb == QLatin1String("export");
    const bool catalogueOptions = options.has("--current") || options.has("--lon") || options.has("--lat") ||
                                  options.has("--mpp") || options.has("--scores");
    const bool fileOptions =
        options.has("--image") || options.has("--utm") || options.has("--ozi") || options.has("--world");
    if (importVerb && pos.size() == 2 && !catalogueOptions && !options.has("--ozi") &&
        !options.has("--world"))
        return import(ctx, options, pos[1]);
    if (exportVerb && pos.size() == 3 && !catalogueOptions && !options.has("--image") &&
        !options.has("--utm"))
        return exportCalibration(ctx, options, pos[1], pos[2]);
    const bool scanVerb = verb == QLatin1String("scan");
    if (!scanVerb && verb != QLatin1String("best") && !importVerb && !exportVerb)
        return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
    if (pos.size() != (exportVerb ? 3 : 2))
        return ctx.usageError(ToolContext::argumentCountProblem(pos, exportVerb ? 3 : 2), kUsage);
    if (importVerb || exportVerb)
        return ctx.usageError(QStringLiteral("an option does not go with %1").arg(verb), kUsage);
    if (fileOptions)
        return ctx.usageError(QStringLiteral("--image, --utm, --ozi and --world go with import and export"),
                              kUsage);
    if (scanVerb &&
        (options.has("--lon") || options.has("--lat") || options.has("--mpp") || options.has("--scores")))
        return ctx.usageError(QStringLiteral("--lon, --lat, --mpp and --scores go with best only"), kUsage);
    if (!QFileInfo(pos[1]).isDir()) return ctx.inputError("not a folder: " + pos[1]);

    CToolMapHost host;
    CMapCatalogue catalogue(host);
    catalogue.ReadSettings();
    catalogue.SetShowMap(true);
    // The current map's full name; without --current only its folder, which no map matches.
    const QString current = MapPaths::FileNamePart(options.value(QStringLiteral("--current")));
    catalogue.SetMapFile(QDir(pos[1]).absolutePath() + '/' + current);
    catalogue.ScanMaps();
    return scanVerb ? scan(ctx, catalogue) : best(ctx, options, host, catalogue);
}
