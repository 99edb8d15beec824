#include "Commands.h"
#include "NumberArgs.h"
#include "nav/GeoConstants.h"
#include "nav/MercatorMetres.h"
#include "nav/Mgrs.h"
#include "nav/Utm.h"

namespace {

const char* const kUsage =
    "tarvik-tool grid utm LAT LON [--zone N]\n"
    "       tarvik-tool grid utm-inverse ZONE N|S EASTING NORTHING\n"
    "       tarvik-tool grid mgrs LAT LON [PRECISION]\n"
    "       tarvik-tool grid merc LAT LON\n"
    "       tarvik-tool grid merc-inverse X Y\n"
    "Latitudes and longitudes in decimal degrees on WGS 84, eastings, northings, x and y in metres.\n"
    "utm prints {\"zone\", \"hemisphere\", \"easting\", \"northing\", \"errors\"}; --zone asks for that "
    "zone\n"
    "or a neighbour. utm-inverse prints {\"lat\", \"lon\", \"errors\"}. Error bits: 1 latitude, 2 "
    "longitude,\n"
    "4 easting, 8 northing (values still given), 16 zone, 32 hemisphere, 64 --zone too far off.\n"
    "mgrs prints {\"mgrs\", \"errors\"}; PRECISION 0..5 digits (default 5, one metre); error bits 1 "
    "latitude,\n"
    "2 longitude, 8 precision. merc prints {\"x\", \"y\"}, the Falk/MarcoPolo Mercator metres; merc-inverse\n"
    "{\"lat\", \"lon\"}. Exit 1 when there is no result.";

constexpr int kUtmNoResult =
    UtmError::Latitude | UtmError::Longitude | UtmError::Zone | UtmError::Hemisphere | UtmError::ZoneOverride;

QString nullable(bool present, const QString& json) {
    return present ? json : QStringLiteral("null");
}

int noResult(ToolContext& ctx, const char* what, int errors) {
    return ctx.inputError(
        QStringLiteral("no %1 result (error bits %2)").arg(QLatin1String(what)).arg(errors));
}

int utm(ToolContext& ctx, const QList<double>& n, const QString& zoneText) {
    bool ok = true;
    const int32_t zoneOverride = zoneText.isEmpty() ? 0 : zoneText.toInt(&ok);
    if (!ok) return ctx.inputError("not a zone: " + zoneText);
    int32_t zone = 0;
    char hemisphere = 'N';
    double easting = 0.0;
    double northing = 0.0;
    const int errors =
        GeodeticToUtm(n[0] * DegToRad, n[1] * DegToRad, zone, hemisphere, easting, northing, zoneOverride);
    const bool valid = (errors & kUtmNoResult) == 0;
    ctx.printJson(
        {{"zone", nullable(valid, QString::number(zone))},
         {"hemisphere", nullable(valid, ToolContext::jsonString(QString(QChar::fromLatin1(hemisphere))))},
         {"easting", nullable(valid, ToolContext::number(easting))},
         {"northing", nullable(valid, ToolContext::number(northing))},
         {"errors", QString::number(errors)}});
    return valid ? ToolContext::kOk : noResult(ctx, "UTM", errors);
}

int utmInverse(ToolContext& ctx, const QStringList& pos) {
    bool ok = false;
    const int32_t zone = pos[1].toInt(&ok);
    if (!ok) return ctx.inputError("not a zone: " + pos[1]);
    const QString hemisphereText = pos[2].toUpper();
    const char hemisphere = hemisphereText.size() == 1 ? hemisphereText.at(0).toLatin1() : '?';
    QString badText;
    const auto n = parseNumberArgs(pos.mid(3), badText);
    if (!n) return ctx.inputError("not a number: " + badText);
    double lat = 0.0;
    double lon = 0.0;
    const int errors = UtmToGeodetic(zone, hemisphere, n->at(0), n->at(1), lat, lon);
    const bool valid = (errors & (UtmError::Zone | UtmError::Hemisphere)) == 0;
    ctx.printJson({{"lat", nullable(valid, ToolContext::number(lat * RadToDeg))},
                   {"lon", nullable(valid, ToolContext::number(lon * RadToDeg))},
                   {"errors", QString::number(errors)}});
    return valid ? ToolContext::kOk : noResult(ctx, "UTM", errors);
}

int mgrs(ToolContext& ctx, const QList<double>& n, const QString& precisionText) {
    bool ok = true;
    const int32_t precision = precisionText.isEmpty() ? 5 : precisionText.toInt(&ok);
    if (!ok) return ctx.inputError("not a precision: " + precisionText);
    QByteArray reference;
    const int errors = GeodeticToMgrs(n[0] * DegToRad, n[1] * DegToRad, precision, reference);
    ctx.printJson({{"mgrs", nullable(errors == 0, ToolContext::jsonString(QString::fromLatin1(reference)))},
                   {"errors", QString::number(errors)}});
    return errors == 0 ? ToolContext::kOk : noResult(ctx, "MGRS", errors);
}

int merc(ToolContext& ctx, const QList<double>& n) {
    int32_t x = 0;
    int32_t y = 0;
    if (!GeodeticToMercatorMetres(n[0], n[1], x, y))
        return ctx.inputError("no Mercator metres for a latitude outside -90..90 or a result beyond 32 bits");
    ctx.printJson({{"x", QString::number(x)}, {"y", QString::number(y)}});
    return ToolContext::kOk;
}

int mercInverse(ToolContext& ctx, const QList<double>& n) {
    double lat = 0.0;
    double lon = 0.0;
    mercatorMetresToGeodetic(n[0], n[1], lat, lon);
    ctx.printJson({{"lat", ToolContext::number(lat)}, {"lon", ToolContext::number(lon)}});
    return ToolContext::kOk;
}

} // namespace

int runGridCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {QStringLiteral("--zone")}, {QStringLiteral("--help")});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QStringList pos = options.positional();
    const QString verb = pos.value(0);
    if (verb == QLatin1String("utm-inverse") && pos.size() == 5) return utmInverse(ctx, pos);

    const bool mgrsVerb = verb == QLatin1String("mgrs");
    const qsizetype numberCount = mgrsVerb && pos.size() == 4 ? 2 : pos.size() - 1;
    const bool known = verb == QLatin1String("utm") || verb == QLatin1String("merc") ||
                       verb == QLatin1String("merc-inverse") || mgrsVerb;
    if (!known) return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
    if (numberCount != 2) return ctx.usageError(QStringLiteral("two numbers are needed"), kUsage);
    if (options.has(QStringLiteral("--zone")) && verb != QLatin1String("utm"))
        return ctx.usageError(QStringLiteral("--zone goes with utm only"), kUsage);
    QString badText;
    const auto n = parseNumberArgs(pos.mid(1, 2), badText);
    if (!n) return ctx.inputError("not a number: " + badText);
    if (verb == QLatin1String("utm")) return utm(ctx, *n, options.value(QStringLiteral("--zone")));
    if (mgrsVerb) return mgrs(ctx, *n, pos.value(3));
    if (verb == QLatin1String("merc")) return merc(ctx, *n);
    return mercInverse(ctx, *n);
}
