#include "Commands.h"
#include "NumberArgs.h"
#include "nav/GeoConstants.h"
#include "nav/GeoSphere.h"

namespace {

const char* const kUsage =
    "tarvik-tool geo dist LON1 LAT1 LON2 LAT2\n"
    "       tarvik-tool geo dest LON LAT KM COURSE_DEG\n"
    "Positions in decimal degrees, longitude first, on the sphere of 111.12 km per degree.\n"
    "dist prints {\"km\", \"course_rad\", \"course_deg\"}: the great-circle distance and the initial course\n"
    "(clockwise from north; across the 180° meridian the long way round).\n"
    "dest prints {\"lon\", \"lat\"}: the point reached after KM along the initial course COURSE_DEG.";

} // namespace

int runGeoCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {}, {QStringLiteral("--help")});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = options.positional().value(0);
    if (verb != QLatin1String("dist") && verb != QLatin1String("dest"))
        return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
    if (options.positional().size() != 5)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 5), kUsage);
    QString badText;
    const auto n = parseNumberArgs(options.positional().mid(1), badText);
    if (!n) return ctx.inputError("not a number: " + badText);

    if (verb == QLatin1String("dist")) {
        float course = 0.0f;
        const double km = GeoDistance(n->at(0), n->at(1), n->at(2), n->at(3), &course);
        ctx.printJson({{"km", ToolContext::number(km)},
                       {"course_rad", ToolContext::number(course)},
                       {"course_deg", ToolContext::number(course * RadToDeg)}});
        return ToolContext::kOk;
    }
    double lon = 0.0;
    double lat = 0.0;
    GeoDestination(n->at(0), n->at(1), n->at(2), n->at(3), lon, lat);
    ctx.printJson({{"lon", ToolContext::number(lon)}, {"lat", ToolContext::number(lat)}});
    return ToolContext::kOk;
}
