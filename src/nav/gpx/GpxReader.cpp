#include "nav/gpx/GpxReader.h"

#include "nav/poi/NamedPoi.h"

#include <QXmlStreamReader>
#include <cmath>

namespace {

constexpr double kKmhPerMetrePerSecond = 3.6;

std::optional<double> numberOf(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

class CGpxParser {
public:
    explicit CGpxParser(const QByteArray& bytes) : m_xml(bytes) {}

    std::optional<GpxDocument> Parse(QString& error) {
        if (!m_xml.readNextStartElement() || m_xml.name() != QLatin1String("gpx")) {
            error = m_xml.hasError() ? lineProblem(m_xml.errorString()) : QStringLiteral("not a GPX file");
            return std::nullopt;
        }
        GpxDocument document;
        while (m_strProblem.isEmpty() && m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("wpt"))
                readPoint(document.m_waypoints, "a waypoint");
            else if (m_xml.name() == QLatin1String("rte"))
                readRoute(document.m_routes.emplace_back());
            else if (m_xml.name() == QLatin1String("trk"))
                readTrack(document.m_tracks.emplace_back());
            else
                m_xml.skipCurrentElement();
        }
        if (m_strProblem.isEmpty() && m_xml.hasError()) m_strProblem = lineProblem(m_xml.errorString());
        if (!m_strProblem.isEmpty()) {
            error = m_strProblem;
            return std::nullopt;
        }
        return document;
    }

private:
    QString lineProblem(const QString& what) const {
        return QStringLiteral("line %1: %2").arg(m_xml.lineNumber()).arg(what);
    }

    QString elementText() { return m_xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed(); }

    void readRoute(GpxRoute& route) {
        while (m_strProblem.isEmpty() && m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("name"))
                route.m_strName = elementText();
            else if (m_xml.name() == QLatin1String("rtept"))
                readPoint(route.m_points, "a route point");
            else
                m_xml.skipCurrentElement();
        }
    }

    void readTrack(GpxTrack& track) {
        while (m_strProblem.isEmpty() && m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("name"))
                track.m_strName = elementText();
            else if (m_xml.name() == QLatin1String("trkseg"))
                readSegment(track.m_segments.emplace_back());
            else
                m_xml.skipCurrentElement();
        }
    }

    void readSegment(GpxPoints& segment) {
        while (m_strProblem.isEmpty() && m_xml.readNextStartElement()) {
            if (m_xml.name() == QLatin1String("trkpt"))
                readPoint(segment, "a track point");
            else
                m_xml.skipCurrentElement();
        }
    }

    void readPoint(GpxPoints& points, const char* what) {
        bool lonOk = false, latOk = false;
        GpxPoint p;
        p.m_dLon = m_xml.attributes().value("lon").toDouble(&lonOk);
        p.m_dLat = m_xml.attributes().value("lat").toDouble(&latOk);
        if (!lonOk || !latOk || !IsWritablePoi({p.m_dLon, p.m_dLat, {}})) {
            m_strProblem = lineProblem(QStringLiteral("%1 without a valid lat and lon").arg(what));
            return;
        }
        readPointChildren(p);
        points.push_back(p);
    }

    void readPointChildren(GpxPoint& p) {
        while (m_xml.readNextStartElement()) {
            const auto name = m_xml.name();
            if (name == QLatin1String("name"))
                p.m_strName = elementText();
            else if (name == QLatin1String("ele"))
                p.m_dEle = numberOf(elementText());
            else if (name == QLatin1String("time"))
                p.m_time = timeOf(elementText());
            else if (name == QLatin1String("fix"))
                p.m_strFix = elementText();
            else if (name == QLatin1String("sat")) {
                bool ok = false;
                const int sat = elementText().toInt(&ok);
                p.m_nSat = ok && sat >= 0 ? std::optional(sat) : std::nullopt;
            } else if (name == QLatin1String("hdop"))
                p.m_dHdop = numberOf(elementText());
            else if (name == QLatin1String("course"))
                p.m_dCourse = numberOf(elementText());
            else if (name == QLatin1String("speed")) {
                const auto metresPerSecond = numberOf(elementText());
                p.m_dSpeed =
                    metresPerSecond ? std::optional(*metresPerSecond * kKmhPerMetrePerSecond) : std::nullopt;
            } else if (name == QLatin1String("extensions") || name == QLatin1String("TrackPointExtension"))
                readPointChildren(p); // speed and course inside
            else
                m_xml.skipCurrentElement();
        }
    }

    static std::optional<QDateTime> timeOf(const QString& text) {
        const QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
        return time.isValid() ? std::optional(time.toUTC()) : std::nullopt;
    }

    QXmlStreamReader m_xml;
    QString m_strProblem;
};

} // namespace

std::optional<GpxDocument> ReadGpx(const QByteArray& bytes, QString& error) {
    return CGpxParser(bytes).Parse(error);
}
