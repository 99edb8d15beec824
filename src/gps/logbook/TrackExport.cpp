#include "gps/logbook/TrackExport.h"

#include <QDateTime>
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

} // namespace

QByteArray utcText(int64_t utcMs) {
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(utcMs, Qt::UTC);
    return time.toString(utcMs % 1000 == 0 ? Qt::ISODate : Qt::ISODateWithMs).toLatin1();
}

QByteArray kml(const std::vector<LogEpoch>& epochs, const QString& name) {
    QByteArray out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<kml xmlns=\"http://www.opengis.net/kml/2.2\" xmlns:gx=\"http://www.google.com/kml/ext/2.2\">\n"
                     "<Document>\n<name>" + xmlText(name) + "</name>\n<Schema id=\"nmea\">\n";
    for (const Column& column : kColumns)
        out += QByteArray("<gx:SimpleArrayField name=\"") + column.name + "\" type=\"" + column.type + "\"/>\n";
    out += "</Schema>\n<Placemark>\n<name>" + xmlText(name) + "</name>\n<gx:Track>\n<altitudeMode>absolute</altitudeMode>\n";
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

} // namespace TrackExport
