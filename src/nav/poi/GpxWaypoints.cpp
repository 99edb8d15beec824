#include "nav/poi/GpxWaypoints.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace {

// XML 1.0 cannot hold control characters other than tab and line breaks.
QString xmlText(const QString& text) {
    QString clean = text;
    clean.removeIf([](QChar c) { return c.unicode() < 0x20 && c != '\t' && c != '\n' && c != '\r'; });
    return clean;
}

} // namespace

std::optional<NamedPois> ReadGpxWaypoints(const QByteArray& bytes, QString& error) {
    QXmlStreamReader xml(bytes);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("gpx")) {
        error = xml.hasError() ? QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString())
                               : QStringLiteral("not a GPX file");
        return std::nullopt;
    }
    NamedPois points;
    while (xml.readNextStartElement()) {
        if (xml.name() != QLatin1String("wpt")) {
            xml.skipCurrentElement();
            continue;
        }
        bool lonOk = false, latOk = false;
        NamedPoi point{xml.attributes().value("lon").toDouble(&lonOk),
                       xml.attributes().value("lat").toDouble(&latOk),
                       {}};
        if (!lonOk || !latOk || !IsWritablePoi(point)) {
            error = QStringLiteral("line %1: a waypoint without a valid lat and lon").arg(xml.lineNumber());
            return std::nullopt;
        }
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("name"))
                point.m_strName = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            else
                xml.skipCurrentElement();
        }
        points.push_back(point);
    }
    if (xml.hasError()) {
        error = QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString());
        return std::nullopt;
    }
    return points;
}

QByteArray WriteGpxWaypoints(const NamedPois& points) {
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement("gpx");
    xml.writeDefaultNamespace("http://www.topografix.com/GPX/1/1");
    xml.writeAttribute("version", "1.1");
    xml.writeAttribute("creator", "Tarvik");
    for (const NamedPoi& p : points) {
        if (!IsWritablePoi(p)) continue;
        xml.writeStartElement("wpt");
        xml.writeAttribute("lat", QString::fromLatin1(PoiDegreesText(p.m_dLat)));
        xml.writeAttribute("lon", QString::fromLatin1(PoiDegreesText(p.m_dLon)));
        xml.writeTextElement("name", xmlText(p.m_strName));
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return out;
}
