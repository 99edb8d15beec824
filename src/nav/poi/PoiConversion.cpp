#include "nav/poi/PoiConversion.h"

#include "nav/poi/AscReader.h"
#include "nav/poi/AscWriter.h"
#include "nav/poi/GpxWaypoints.h"
#include "nav/poi/Ov2Reader.h"
#include "nav/poi/Ov2Writer.h"
#include "nav/poi/PoiCsv.h"
#include "nav/poi/PoiName.h"

#include <QFileInfo>

namespace {

QString withoutEnclosingQuotes(QString name) {
    while (name.endsWith(' ') || name.endsWith('\t'))
        name.chop(1);
    if (name.size() >= 2 && name.startsWith('"') && name.endsWith('"')) return name.mid(1, name.size() - 2);
    return name;
}

NamedPois namedPoints(const QByteArray& bytes, PoiFormat format) {
    const std::vector<PoiEntry> entries = format == PoiFormat::Ov2 ? ReadOv2(bytes, PoiReading::Complete)
                                                                   : ReadAsc(bytes, PoiReading::Complete);
    NamedPois points;
    points.reserve(entries.size());
    for (const PoiEntry& e : entries) {
        const QString name = PoiNameText(PoiNameAt(bytes, e.m_nNameOffset));
        points.push_back(
            {e.m_dLon, e.m_dLat, format == PoiFormat::Asc ? withoutEnclosingQuotes(name) : name});
    }
    return points;
}

} // namespace

std::optional<PoiFormat> PoiFormatOf(const QString& fileName) {
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("ov2")) return PoiFormat::Ov2;
    if (suffix == QLatin1String("asc")) return PoiFormat::Asc;
    if (suffix == QLatin1String("gpx")) return PoiFormat::Gpx;
    if (suffix == QLatin1String("csv")) return PoiFormat::Csv;
    return std::nullopt;
}

std::optional<NamedPois> ReadNamedPois(const QByteArray& bytes, PoiFormat format, QString& error) {
    switch (format) {
    case PoiFormat::Gpx:
        return ReadGpxWaypoints(bytes, error);
    case PoiFormat::Csv:
        return ReadPoiCsv(bytes, error);
    default:
        return namedPoints(bytes, format);
    }
}

QByteArray WriteNamedPois(const NamedPois& points, PoiFormat format) {
    switch (format) {
    case PoiFormat::Ov2:
        return WriteOv2(points);
    case PoiFormat::Asc:
        return WriteAsc(points);
    case PoiFormat::Gpx:
        return WriteGpxWaypoints(points);
    case PoiFormat::Csv:
        return WritePoiCsv(points);
    }
    return {};
}
