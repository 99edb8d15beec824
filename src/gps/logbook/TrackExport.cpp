#include "gps/logbook/TrackExport.h"

#include "gps/logbook/Logbook.h"
#include "nav/gpx/GpxWriter.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <charconv>

namespace TrackExport {

namespace {

// The shortest text that reads back to the same value.
template <class Number> QByteArray number(Number value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QByteArray(buffer, result.ptr - buffer);
}

template <class Number> QByteArray optional(const std::optional<Number>& value) {
    return value ? number(*value) : QByteArray();
}

QByteArray xmlText(const QString& text) {
    return text.toHtmlEscaped().toUtf8();
}

struct Column {
    const char* name;
    const char* type;
    QByteArray (*value)(const LogEpoch&);
};

const Column kColumns[] = {
    {"speed", "float", [](const LogEpoch& e) { return optional(e.m_speed); }},
    {"course", "float", [](const LogEpoch& e) { return optional(e.m_course); }},
    {"fix", "int", [](const LogEpoch& e) { return number(e.m_nQuality); }},
    {"sats", "int", [](const LogEpoch& e) { return optional(e.m_satellites); }},
    {"hdop", "float", [](const LogEpoch& e) { return optional(e.m_hdop); }},
};

QString gpxFix(const LogEpoch& epoch) {
    switch (epoch.m_nQuality) {
    case 0:
        return QStringLiteral("none");
    case 1:
        return epoch.m_altitude ? QStringLiteral("3d") : QStringLiteral("2d");
    case 2:
        return QStringLiteral("dgps");
    case 3:
        return QStringLiteral("pps");
    default:
        return {};
    }
}

// The double that prints as the float's shortest text: 545.4f goes out as 545.4, as in KML and CSV.
std::optional<double> widened(const std::optional<float>& value) {
    return value ? std::optional<double>(number(*value).toDouble()) : std::nullopt;
}

} // namespace

QByteArray utcText(int64_t utcMs) {
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(utcMs, Qt::UTC);
    return time.toString(utcMs % 1000 == 0 ? Qt::ISODate : Qt::ISODateWithMs).toLatin1();
}

QByteArray kml(const std::vector<LogEpoch>& epochs, const QString& name) {
    QByteArray out =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<kml xmlns=\"http://www.opengis.net/kml/2.2\" xmlns:gx=\"http://www.google.com/kml/ext/2.2\">\n"
        "<Document>\n<name>" +
        xmlText(name) + "</name>\n<Schema id=\"nmea\">\n";
    for (const Column& column : kColumns)
        out +=
            QByteArray("<gx:SimpleArrayField name=\"") + column.name + "\" type=\"" + column.type + "\"/>\n";
    out += "</Schema>\n<Placemark>\n<name>" + xmlText(name) +
           "</name>\n<gx:Track>\n<altitudeMode>absolute</altitudeMode>\n";
    for (const LogEpoch& epoch : epochs)
        out += "<when>" + utcText(epoch.m_nUtcMs) + "</when>\n";
    for (const LogEpoch& epoch : epochs)
        out += "<gx:coord>" + number(epoch.m_dLong) + ' ' + number(epoch.m_dLat) + ' ' +
               (epoch.m_altitude ? number(*epoch.m_altitude) : QByteArray("0")) + "</gx:coord>\n";
    out += "<ExtendedData>\n<SchemaData schemaUrl=\"#nmea\">\n";
    for (const Column& column : kColumns) {
        out += QByteArray("<gx:SimpleArrayData name=\"") + column.name + "\">\n";
        for (const LogEpoch& epoch : epochs)
            out += "<gx:value>" + column.value(epoch) + "</gx:value>\n";
        out += "</gx:SimpleArrayData>\n";
    }
    out += "</SchemaData>\n</ExtendedData>\n</gx:Track>\n</Placemark>\n</Document>\n</kml>\n";
    return out;
}

QByteArray gpx(const std::vector<LogEpoch>& epochs, const QString& name) {
    GpxPoints points;
    points.reserve(epochs.size());
    for (const LogEpoch& epoch : epochs) {
        GpxPoint point;
        point.m_dLat = epoch.m_dLat;
        point.m_dLon = epoch.m_dLong;
        point.m_dEle = widened(epoch.m_altitude);
        point.m_time = QDateTime::fromMSecsSinceEpoch(epoch.m_nUtcMs, Qt::UTC);
        point.m_dSpeed = widened(epoch.m_speed);
        point.m_dCourse = widened(epoch.m_course);
        point.m_strFix = gpxFix(epoch);
        point.m_nSat = epoch.m_satellites;
        point.m_dHdop = widened(epoch.m_hdop);
        points.push_back(std::move(point));
    }
    GpxDocument document;
    document.m_tracks.push_back({name, {std::move(points)}});
    return WriteGpx(document);
}

QByteArray csv(const std::vector<LogEpoch>& epochs) {
    QByteArray out = "time,lon,lat,alt,speed,course,fix,sats,hdop\n";
    for (const LogEpoch& epoch : epochs) {
        out += utcText(epoch.m_nUtcMs) + ',' + number(epoch.m_dLong) + ',' + number(epoch.m_dLat) + ',' +
               optional(epoch.m_altitude);
        for (const Column& column : kColumns)
            out += ',' + column.value(epoch);
        out += '\n';
    }
    return out;
}

const char* suffix(Format format) {
    switch (format) {
    case Format::Gpx:
        return "gpx";
    case Format::Kml:
        return "kml";
    case Format::Csv:
        return "csv";
    }
    return "";
}

std::optional<QByteArray> exportLog(const QString& path, Format format, bool bAcceptAllTalkers) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QFileInfo info(path);
    const QDateTime start = Logbook::startFromName(info.fileName());
    const QDate date = start.isValid() ? start.date() : QDate::currentDate();
    const std::vector<LogEpoch> epochs =
        readLogEpochs(file.readAll(), QDate(1970, 1, 1).daysTo(date), bAcceptAllTalkers);
    switch (format) {
    case Format::Gpx:
        return gpx(epochs, info.completeBaseName());
    case Format::Kml:
        return kml(epochs, info.completeBaseName());
    case Format::Csv:
        return csv(epochs);
    }
    return std::nullopt;
}

} // namespace TrackExport
