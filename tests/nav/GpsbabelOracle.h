#pragma once

#include "nav/poi/NamedPoi.h"

#include <QMap>
#include <QProcess>
#include <QRegularExpression>

// GPSBabel (test oracle) reading a POI file of its `format`: the points in its order, from its unicsv
// rows "No,Latitude,Longitude,Name" (6 decimals).
inline NamedPois gpsbabelPoints(const QString& format, const QString& path) {
    QProcess babel;
    babel.start("gpsbabel", {"-i", format, "-f", path, "-o", "unicsv", "-F", "-"});
    babel.waitForFinished();
    NamedPois points;
    const QRegularExpression row(R"re(^\d+,(-?[\d.]+),(-?[\d.]+),"?(.*?)"?$)re");
    for (const QString& line : QString::fromUtf8(babel.readAllStandardOutput()).split('\n'))
        if (const auto m = row.match(line.trimmed()); m.hasMatch())
            points.push_back(
                {m.captured(2).toDouble(), m.captured(1).toDouble(), m.captured(3).replace("\"\"", "\"")});
    return points;
}

// GPSBabel (test oracle) reading `path` with `args` (such as {"-t", "-i", "gpx"}) into unicsv: one
// map from column name to text per row, quotes removed.
inline std::vector<QMap<QString, QString>> gpsbabelRows(QStringList args, const QString& path) {
    QProcess babel;
    args << "-f" << path << "-o"
         << "unicsv,utc=0"
         << "-F"
         << "-";
    babel.start("gpsbabel", args);
    babel.waitForFinished();
    QStringList lines = QString::fromUtf8(babel.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    std::vector<QMap<QString, QString>> rows;
    if (lines.isEmpty()) return rows;
    const QStringList header = lines.takeFirst().trimmed().split(',');
    for (const QString& line : lines) {
        const QStringList cells = line.trimmed().split(',');
        QMap<QString, QString>& row = rows.emplace_back();
        for (qsizetype i = 0; i < header.size() && i < cells.size(); ++i)
            row[header[i]] = QString(cells[i]).remove('"');
    }
    return rows;
}
