#pragma once

#include <QMap>
#include <QProcess>
#include <QStringList>
#include <vector>

// GPSBabel (test oracle) reading `path` with `args` (such as {"-t", "-i", "gpx"}) into unicsv: one
// map from column name to text per row, quotes removed.
inline std::vector<QMap<QString, QString>> gpsbabelRows(const QStringList& args, const QString& path) {
    QProcess babel;
    babel.start("gpsbabel", args + QStringList{"-f", path, "-o", "unicsv,utc=0", "-F", "-"});
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
