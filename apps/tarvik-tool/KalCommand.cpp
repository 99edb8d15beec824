#include "Commands.h"
#include "MapToolSupport.h"
#include "NumberArgs.h"
#include "maps/MapCalibration.h"
#include <QHash>

namespace {

const char* const kUsage =
    "tarvik-tool kal fit --size W,H --point X,Y,LON,LAT [--point ...]\n"
    "       tarvik-tool kal show KAL [--size W,H]\n"
    "       tarvik-tool kal geo2px KAL LON LAT\n"
    "       tarvik-tool kal px2geo KAL X Y\n"
    "       tarvik-tool kal save KAL --size W,H --bitmap NAME --point X,Y,LON,LAT [--point ...]\n"
    "Map calibrations: an image of W x H pixels tied to the earth by one to four points, each a pixel\n"
    "(X, Y from the top-left corner) and a position (decimal degrees, east and north positive).\n"
    "fit and show print {\"ok\", \"count\", \"geo_to_pixel\", \"pixel_to_geo\" (3x3 row by row), "
    "\"min_lon\",\n"
    "\"min_lat\", \"max_lon\", \"max_lat\", \"m_per_px\", \"residuals\": [{\"dx_px\", \"dy_px\", \"m\"}]}; "
    "ok tells\n"
    "whether every point converts back exactly. Degenerate points are warned about on stderr.\n"
    "show loads a .kal (an older layout is converted and rewritten; its size comes from --size or the\n"
    "image beside it) and exits 1 when it does not load. geo2px prints {\"x\", \"y\", \"contains\"},\n"
    "px2geo {\"lon\", \"lat\"}. save writes KAL for the image NAME when the points make a valid fit.";

const QStringList kValueOptions = {QStringLiteral("--size"), QStringLiteral("--point"),
                                   QStringLiteral("--bitmap")};

// The map of --size and the --point options; a usage or input error code when they are not usable.
int calibrationFromOptions(ToolContext& ctx, const ToolOptions& options, MapCalibration& map) {
    const auto size = parseSizeOption(options.value(QStringLiteral("--size")));
    const QStringList points = options.values(QStringLiteral("--point"));
    if (!options.has(QStringLiteral("--size")))
        return ctx.usageError(QStringLiteral("--size W,H is needed"), kUsage);
    if (points.isEmpty() || points.size() > MapCalibration::kMaxPoints)
        return ctx.usageError(
            QStringLiteral("--point is needed one to %1 times").arg(MapCalibration::kMaxPoints), kUsage);
    if (!size) return ctx.inputError("not a size W,H of positive integers: " + options.value("--size"));
    map.SetMapSize(*size);
    for (const QString& text : points) {
        const auto point = parsePointOption(text);
        if (!point) return ctx.inputError("not a point X,Y,LON,LAT: " + text);
        map.SetPoint(map.PointCount(), point->pixel, point->lon, point->lat);
    }
    return ToolContext::kOk;
}

int fit(ToolContext& ctx, const ToolOptions& options) {
    MapCalibration map;
    if (const int code = calibrationFromOptions(ctx, options, map)) return code;
    printCalibration(ctx, map, AssessCalibration(map));
    return ToolContext::kOk;
}

int save(ToolContext& ctx, const ToolOptions& options, const QString& kalPath) {
    if (!options.has(QStringLiteral("--bitmap")))
        return ctx.usageError(QStringLiteral("save needs --bitmap"), kUsage);
    MapCalibration map(options.value(QStringLiteral("--bitmap")));
    if (const int code = calibrationFromOptions(ctx, options, map)) return code;
    if (!map.Verify()) return ctx.inputError("the points do not make a valid calibration; nothing written");
    if (!map.SaveCalibration(kalPath)) return ctx.inputError("cannot write " + kalPath);
    printCalibration(ctx, map, AssessCalibration(map));
    return ToolContext::kOk;
}

int convert(ToolContext& ctx, const QStringList& pos, const MapCalibration& map) {
    QString badText;
    const auto n = parseNumberArgs(pos.mid(2), badText);
    if (!n) return ctx.inputError("not a number: " + badText);
    if (pos[0] == QLatin1String("geo2px")) {
        const Point pixel = map.GeoToPixel(n->at(0), n->at(1));
        ctx.printJson({{"x", QString::number(pixel.x)},
                       {"y", QString::number(pixel.y)},
                       {"contains", map.Contains(n->at(0), n->at(1)) ? "true" : "false"}});
        return ToolContext::kOk;
    }
    bool okX = false, okY = false;
    const int x = pos[2].toInt(&okX), y = pos[3].toInt(&okY);
    if (!okX || !okY) return ctx.inputError("not a pixel X Y of integers: " + pos.mid(2).join(' '));
    double lon, lat;
    map.PixelToGeo(x, y, lon, lat);
    ctx.printJson({{"lon", ToolContext::number(lon)}, {"lat", ToolContext::number(lat)}});
    return ToolContext::kOk;
}

} // namespace

int runKalCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, kValueOptions, {QStringLiteral("--help")});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QStringList pos = options.positional();
    const QString verb = pos.value(0);
    if (verb == QLatin1String("fit") && pos.size() == 1) return fit(ctx, options);
    if (verb == QLatin1String("save") && pos.size() == 2) return save(ctx, options, pos[1]);

    const bool show = verb == QLatin1String("show") && pos.size() == 2;
    const bool conversion =
        (verb == QLatin1String("geo2px") || verb == QLatin1String("px2geo")) && pos.size() == 4;
    if (!show && !conversion) {
        const QHash<QString, int> kArguments = {
            {"fit", 1}, {"save", 2}, {"show", 2}, {"geo2px", 4}, {"px2geo", 4}};
        if (!kArguments.contains(verb)) return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
        return ctx.usageError(ToolContext::argumentCountProblem(pos, kArguments[verb]), kUsage);
    }
    for (const char* name : {"--point", "--bitmap", "--size"})
        if (options.has(QString::fromLatin1(name)) && (conversion || qstrcmp(name, "--size") != 0))
            return ctx.usageError(QStringLiteral("%1 does not go with %2").arg(QLatin1String(name), verb),
                                  kUsage);
    std::optional<Size> size;
    if (options.has(QStringLiteral("--size"))) {
        size = parseSizeOption(options.value(QStringLiteral("--size")));
        if (!size) return ctx.inputError("not a size W,H of positive integers: " + options.value("--size"));
    }
    MapCalibration map;
    if (!loadCalibrationBeside(pos[1], size, map))
        return ctx.inputError(pos[1] + " does not load as a calibration");
    if (conversion) return convert(ctx, pos, map);
    printCalibration(ctx, map, AssessCalibration(map));
    return ToolContext::kOk;
}
