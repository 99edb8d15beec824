#include "nav/gpx/GpxWriter.h"

#include "nav/poi/NamedPoi.h"

#include <QLocale>
#include <QXmlStreamWriter>
#include <algorithm>
#include <cmath>

namespace {

const char* const kGpxNamespace = "http://www.topografix.com/GPX/1/1";
const char* const kTrackPointExtension = "http://www.garmin.com/xmlschemas/TrackPointExtension/v2";
constexpr double kKmhPerMetrePerSecond = 3.6;

// XML 1.0 cannot hold control characters other than tab and line breaks.
QString xmlText(const QString& text) {
    QString clean = text;
    clean.removeIf([](QChar c) { return c.unicode() < 0x20 && c != '\t' && c != '\n' && c != '\r'; });
    return clean;
}

QString numberText(double value) {
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

QString timeText(const QDateTime& time) {
    const QDateTime utc = time.toUTC();
    return utc.toString(utc.time().msec() != 0 ? Qt::ISODateWithMs : Qt::ISODate);
}

bool isWritable(const GpxPoint& p) {
    return IsWritablePoi({p.m_dLon, p.m_dLat, {}});
}

bool hasMotion(const GpxPoint& p) {
    return p.m_dSpeed || p.m_dCourse;
}

bool documentHasMotion(const GpxDocument& document) {
    const auto anyMotion = [](const GpxPoints& points) { return std::ranges::any_of(points, hasMotion); };
    return std::ranges::any_of(document.m_routes, [&](const GpxRoute& r) { return anyMotion(r.m_points); }) ||
           std::ranges::any_of(
               document.m_tracks,
               [&](const GpxTrack& t) { return std::ranges::any_of(t.m_segments, anyMotion); }) ||
           anyMotion(document.m_waypoints);
}

void writeOptional(QXmlStreamWriter& xml, const char* element, const std::optional<double>& value) {
    if (value && std::isfinite(*value)) xml.writeTextElement(element, numberText(*value));
}

// Children in the order the GPX 1.1 schema demands.
void writePoint(QXmlStreamWriter& xml, const char* element, const GpxPoint& p) {
    if (!isWritable(p)) return;
    xml.writeStartElement(element);
    xml.writeAttribute("lat", QString::fromLatin1(PoiDegreesText(p.m_dLat)));
    xml.writeAttribute("lon", QString::fromLatin1(PoiDegreesText(p.m_dLon)));
    writeOptional(xml, "ele", p.m_dEle);
    if (p.m_time && p.m_time->isValid()) xml.writeTextElement("time", timeText(*p.m_time));
    if (!p.m_strName.isEmpty() || std::string_view(element) == "wpt")
        xml.writeTextElement("name", xmlText(p.m_strName));
    if (!p.m_strFix.isEmpty()) xml.writeTextElement("fix", p.m_strFix);
    if (p.m_nSat) xml.writeTextElement("sat", QString::number(std::max(0, *p.m_nSat)));
    writeOptional(xml, "hdop", p.m_dHdop);
    if (hasMotion(p)) {
        xml.writeStartElement("extensions");
        xml.writeStartElement(kTrackPointExtension, "TrackPointExtension");
        if (p.m_dSpeed && std::isfinite(*p.m_dSpeed))
            xml.writeTextElement(kTrackPointExtension, "speed",
                                 numberText(*p.m_dSpeed / kKmhPerMetrePerSecond));
        if (p.m_dCourse && std::isfinite(*p.m_dCourse))
            xml.writeTextElement(kTrackPointExtension, "course", numberText(*p.m_dCourse));
        xml.writeEndElement();
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

void writeName(QXmlStreamWriter& xml, const QString& name) {
    if (!name.isEmpty()) xml.writeTextElement("name", xmlText(name));
}

} // namespace

QByteArray WriteGpx(const GpxDocument& document) {
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement("gpx");
    xml.writeDefaultNamespace(kGpxNamespace);
    if (documentHasMotion(document)) xml.writeNamespace(kTrackPointExtension, "gpxtpx");
    xml.writeAttribute("version", "1.1");
    xml.writeAttribute("creator", "Tarvik");
    for (const GpxPoint& p : document.m_waypoints)
        writePoint(xml, "wpt", p);
    for (const GpxRoute& route : document.m_routes) {
        xml.writeStartElement("rte");
        writeName(xml, route.m_strName);
        for (const GpxPoint& p : route.m_points)
            writePoint(xml, "rtept", p);
        xml.writeEndElement();
    }
    for (const GpxTrack& track : document.m_tracks) {
        xml.writeStartElement("trk");
        writeName(xml, track.m_strName);
        for (const GpxPoints& segment : track.m_segments) {
            if (std::ranges::none_of(segment, isWritable)) continue;
            xml.writeStartElement("trkseg");
            for (const GpxPoint& p : segment)
                writePoint(xml, "trkpt", p);
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return out;
}
