#include "integrations/navbridge/QuickStartTargets.h"

#include "settings/CIniFile.h"

#include <QFile>
#include <QLocale>
#include <QRegularExpression>

namespace QuickStartTargets {

namespace {
QString key(int index) {
    return QStringLiteral("Target%1").arg(index);
}
} // namespace

QList<QuickStartTarget> read(const QByteArray& bytes) {
    static const QRegularExpression entry(
        QStringLiteral(R"re(^\s*([-+0-9.eE]+)\s*,\s*([-+0-9.eE]+)\s*,\s*"(.*)"\s*$)re"));
    CIniFile ini;
    ini.LoadFromBytes(bytes);
    QList<QuickStartTarget> targets;
    QString value;
    for (int index = 0; ini.ReadString(QLatin1String(kSection), key(index), value); ++index) {
        const QRegularExpressionMatch match = entry.match(value);
        bool lonOk = false, latOk = false;
        const double lon = match.captured(1).toDouble(&lonOk), lat = match.captured(2).toDouble(&latOk);
        if (match.hasMatch() && lonOk && latOk) targets.append({lon, lat, match.captured(3)});
    }
    return targets;
}

QByteArray write(const QList<QuickStartTarget>& targets) {
    CIniFile ini;
    for (int index = 0; index < targets.size(); ++index) {
        const QuickStartTarget& t = targets[index];
        ini.WriteString(QLatin1String(kSection), key(index),
                        QStringLiteral("%1, %2, \"%3\"")
                            .arg(QString::number(t.dLong, 'g', QLocale::FloatingPointShortest),
                                 QString::number(t.dLat, 'g', QLocale::FloatingPointShortest), t.strName));
    }
    return ini.ToBytes();
}

QuickStartTarget defaultTarget() {
    return {11.54967, 48.13548, QStringLiteral("Münchner Wiesn")};
}

QList<QuickStartTarget> load(const QString& hostPath) {
    QFile file(hostPath);
    if (file.open(QIODevice::ReadOnly)) return read(file.readAll());
    const QList<QuickStartTarget> targets{defaultTarget()};
    if (file.open(QIODevice::WriteOnly)) file.write(write(targets));
    return targets;
}

} // namespace QuickStartTargets
