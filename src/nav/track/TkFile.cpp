#include "nav/track/TkFile.h"

#include "nav/GeoSphere.h"
#include "nav/waypoints/TextLines.h"
#include "settings/ValueText.h"

#include <QByteArray>
#include <QList>

namespace {
constexpr qsizetype kLineBuffer = 1024;
}

TrackVertices ReadTk(QByteArrayView bytes) {
    TrackVertices track;
    track.reserve(100);
    forEachTextLine(bytes, kLineBuffer, [&](QByteArrayView line) {
        const QList<QByteArray> fields = line.toByteArray().split(',');
        if (fields.size() <= 2) return;
        track.push_back({ValueText::wcstod(QString::fromLatin1(fields[1])),
                         ValueText::wcstod(QString::fromLatin1(fields[0]))});
    });
    return track;
}

QByteArray WriteTk(const TrackVertices& track) {
    QByteArray out;
    for (const TrackVertex& v : track)
        out += QString::asprintf("%1.7f,%1.7f,\n", v.m_dLat, v.m_dLon).toLatin1();
    return out;
}

std::vector<double> RunningKm(const TrackVertices& track) {
    std::vector<double> km;
    km.reserve(track.size());
    double sum = 0;
    for (size_t i = 0; i < track.size(); ++i) {
        if (i > 0)
            sum += GeoDistance(track[i - 1].m_dLon, track[i - 1].m_dLat, track[i].m_dLon, track[i].m_dLat);
        km.push_back(sum);
    }
    return km;
}
