#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// The quick-start page's destinations, "MNTarget.ini" in Tarvik's program folder: section
// "MNTarget", entries "Target0", "Target1", ... (read up to the first missing number), each
// `LON, LAT, "NAME"` in degrees.
struct QuickStartTarget {
    double dLong = 0.0;
    double dLat = 0.0;
    QString strName;
    bool operator==(const QuickStartTarget&) const = default;
};

namespace QuickStartTargets {
inline constexpr const char* kFileName = "MNTarget.ini";
inline constexpr const char* kSection = "MNTarget";

// The entries of the file's bytes; entries that are not `LON, LAT, "NAME"` are left out.
QList<QuickStartTarget> read(const QByteArray& bytes);
// The file for `targets`.
QByteArray write(const QList<QuickStartTarget>& targets);
// The one entry of a new file: the Munich Oktoberfest.
QuickStartTarget defaultTarget();
// The targets of the file at `hostPath`; a missing file is made with the default entry first.
QList<QuickStartTarget> load(const QString& hostPath);
} // namespace QuickStartTargets
