#pragma once

#include "nav/poi/NamedPoi.h"
#include "support/GpsBabel.h"

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
