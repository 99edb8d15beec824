#include "nav/goto/Destination.h"

#include <QRegularExpression>
#include <QUrl>
#include <cmath>

namespace {

std::optional<Destination> position(const QString& latText, const QString& lonText, const QString& name) {
    bool latOk = false, lonOk = false;
    Destination d{latText.trimmed().toDouble(&latOk), lonText.trimmed().toDouble(&lonOk), name.trimmed()};
    if (!latOk || !lonOk || !std::isfinite(d.m_dLat) || !std::isfinite(d.m_dLon) || std::abs(d.m_dLat) > 90 ||
        std::abs(d.m_dLon) > 180)
        return std::nullopt;
    return d;
}

} // namespace

std::optional<Destination> ParseGotoArgument(const QString& text) {
    const QStringList parts = text.split(',');
    if (parts.size() < 2) return std::nullopt;
    return position(parts[0], parts[1], parts.mid(2).join(','));
}

std::optional<Destination> ParseGeoUri(const QString& uri) {
    if (!uri.startsWith(QLatin1String("geo:"), Qt::CaseInsensitive)) return std::nullopt;
    const QString rest = uri.mid(4);
    const qsizetype queryAt = rest.indexOf('?');
    const QString path = rest.left(queryAt < 0 ? rest.size() : queryAt).section(';', 0, 0);
    QString query;
    for (const QString& item : queryAt < 0 ? QStringList() : rest.mid(queryAt + 1).split('&'))
        if (item.startsWith(QLatin1String("q=")))
            query = QUrl::fromPercentEncoding(item.mid(2).replace('+', ' ').toUtf8());
    const QStringList coordinates = path.split(',');
    if (coordinates.size() < 2 || coordinates.size() > 3) return std::nullopt;
    auto destination = position(coordinates[0], coordinates[1], query);
    // "geo:0,0?q=lat,lon(Name)": the position is in the query.
    static const QRegularExpression queryPosition(R"(^\s*(-?[\d.]+)\s*,\s*(-?[\d.]+)\s*(?:\((.*)\))?\s*$)");
    if (const auto m = queryPosition.match(query); m.hasMatch())
        destination = position(m.captured(1), m.captured(2), m.captured(3));
    return destination;
}
