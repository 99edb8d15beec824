#include "nav/poi/PoiCsv.h"

#include "settings/TextDecoding.h"

#include <QStringList>

namespace {

// The next row's fields from `pos` on (quoted fields may hold line breaks); `pos` moves past the row and
// `lines` counts the line breaks passed.
QStringList nextRow(const QString& text, qsizetype& pos, int& lines) {
    QStringList fields;
    QString field;
    bool quoted = false;
    for (; pos < text.size(); ++pos) {
        const QChar c = text[pos];
        if (c == '\n') ++lines;
        if (quoted) {
            if (c != '"')
                field += c;
            else if (pos + 1 < text.size() && text[pos + 1] == '"')
                field += text[++pos];
            else
                quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields << field;
            field.clear();
        } else if (c == '\n') {
            ++pos;
            break;
        } else if (c != '\r') {
            field += c;
        }
    }
    fields << field;
    return fields;
}

QByteArray csvField(const QString& text) {
    if (!text.contains(',') && !text.contains('"') && !text.contains('\n') && !text.contains('\r'))
        return text.toUtf8();
    return '"' + QString(text).replace('"', QStringLiteral("\"\"")).toUtf8() + '"';
}

} // namespace

std::optional<NamedPois> ReadPoiCsv(const QByteArray& bytes, QString& error) {
    const QString text = decodeText(bytes);
    NamedPois points;
    qsizetype pos = 0;
    int lines = 0;
    while (pos < text.size()) {
        const qsizetype rowStart = pos;
        const int line = lines + 1;
        const QStringList fields = nextRow(text, pos, lines);
        if (fields.size() == 1 && fields[0].trimmed().isEmpty()) continue;
        if (rowStart == 0 && fields.value(0).trimmed() == QLatin1String("lon")) continue;
        bool lonOk = false, latOk = false;
        NamedPoi point{fields[0].trimmed().toDouble(&lonOk), fields.value(1).trimmed().toDouble(&latOk),
                       fields.mid(2).join(',')};
        if (!lonOk || !latOk || !IsWritablePoi(point)) {
            error = QStringLiteral("line %1: not a position \"lon,lat\"").arg(line);
            return std::nullopt;
        }
        points.push_back(point);
    }
    return points;
}

QByteArray WritePoiCsv(const NamedPois& points) {
    QByteArray out = "lon,lat,name\n";
    for (const NamedPoi& p : points)
        if (IsWritablePoi(p))
            out += PoiDegreesText(p.m_dLon) + ',' + PoiDegreesText(p.m_dLat) + ',' + csvField(p.m_strName) +
                   '\n';
    return out;
}
