#include "integrations/navbridge/DestinationHandOver.h"

#include "integrations/navbridge/MobileNavigatorFiles.h"
#include "integrations/navbridge/NavProgramKind.h"
#include "integrations/navbridge/NavProgramLocation.h"
#include "integrations/navbridge/TomTomSdk.h"
#include "nav/MercatorMetres.h"
#include "platform/DeviceRoot.h"
#include "settings/DevLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace {

bool writeWhole(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size() &&
           file.flush();
}

QString quoted(const QStringList& line) {
    QStringList parts;
    for (const QString& part : line)
        parts.append(part.contains(QLatin1Char(' ')) ? QLatin1Char('"') + part + QLatin1Char('"') : part);
    return parts.join(QLatin1Char(' '));
}

QString shortest(double value) {
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

} // namespace

DestinationHandOver::DestinationHandOver(const DeviceRoot& root, Services services)
    : m_root(root), m_services(std::move(services)) {}

HandOverResult DestinationHandOver::Navigate(int kind, const QString& programPath, double lon, double lat,
                                             const QString& name) const {
    if (NavProgramKind::isMobileNavigator(kind))
        return MobileNavigator(navProgramFolder(programPath), lon, lat, name);
    switch (kind) {
    case NavProgramKind::kFalkMarcoPolo:
        return FalkMarcoPolo(programPath, lon, lat);
    case NavProgramKind::kTomTomSdk:
        return TomTom(lon, lat, name);
    case NavProgramKind::kNavit:
        return Navit(lon, lat, name);
    case NavProgramKind::kSystemDefault:
        return Run({QStringLiteral("xdg-open"), GeoUri(lon, lat, name)});
    default:
        return {}; // TomTom without its SDK window takes no destination
    }
}

HandOverResult DestinationHandOver::MobileNavigator(const QString& folder, double lon, double lat,
                                                    const QString& name) const {
    HandOverResult result;
    const QString points = m_root.hostPath(folder + QLatin1String(MobileNavigatorFiles::kRoutePoints));
    const QString route = m_root.hostPath(folder + QLatin1String(MobileNavigatorFiles::kRouteFile));
    for (const auto& [path, bytes] : {std::pair{points, MobileNavigatorFiles::routePoints(lon, lat, name)},
                                      std::pair{route, MobileNavigatorFiles::routeFile({{lon, lat}})}}) {
        if (!writeWhole(path, bytes)) {
            result.bOk = false;
            result.error = QStringLiteral("cannot write %1").arg(path);
            return result;
        }
        result.files.append(path);
    }
    return result;
}

HandOverResult DestinationHandOver::FalkMarcoPolo(const QString& programPath, double lon, double lat) const {
    int32_t x = 0, y = 0;
    if (!GeodeticToMercatorMetres(lat, lon, x, y))
        return {false, {}, {}, QStringLiteral("no Mercator metres for latitude %1").arg(shortest(lat))};
    const QStringList arguments = {QStringLiteral("-e"), QStringLiteral("%1,%2").arg(x).arg(y)};
    const QStringList line = ProgramLine(m_root.hostPath(programPath), arguments);
    devLog("Start: %s %s", qUtf8Printable(programPath), qUtf8Printable(arguments.join(QLatin1Char(' '))));
    return Run(line);
}

HandOverResult DestinationHandOver::TomTom(double lon, double lat, const QString& name) const {
    HandOverResult result;
    result.files = TomTomSdk::sendFileCall(m_root, TomTomSdk::navigateMessage(lon, lat, name));
    if (result.files.isEmpty()) {
        result.bOk = false;
        result.error = QStringLiteral("cannot write the TomTom SDK file call");
    } else if (m_services.sdkCallSent) {
        m_services.sdkCallSent();
    }
    return result;
}

HandOverResult DestinationHandOver::Navit(double lon, double lat, const QString& name) const {
    HandOverResult result;
    result.command = QStringLiteral("org.navit_project.navit.navit.set_destination \"%1\" \"%2\"")
                         .arg(NavitClient::GeoText(lon, lat), name);
    if (!m_services.navit.SetDestination(lon, lat, name)) {
        result.bOk = false;
        result.error =
            QStringLiteral("Navit did not take the destination: %1").arg(m_services.navit.LastError());
    }
    return result;
}

HandOverResult DestinationHandOver::Run(const QStringList& line) const {
    HandOverResult result;
    result.command = quoted(line);
    if (m_services.start && !m_services.start(line.first(), line.mid(1), result.error)) result.bOk = false;
    return result;
}

QStringList DestinationHandOver::ProgramLine(const QString& hostProgram, const QStringList& arguments) {
    if (hostProgram.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive)) {
        const QString wine = QStandardPaths::findExecutable(QStringLiteral("wine"));
        if (!wine.isEmpty()) return QStringList{wine, hostProgram} + arguments;
    }
    return QStringList{hostProgram} + arguments;
}

QString DestinationHandOver::GeoUri(double lon, double lat, const QString& name) {
    QString uri = QStringLiteral("geo:%1,%2").arg(shortest(lat), shortest(lon));
    if (!name.isEmpty()) uri += QStringLiteral("?q=") + QString::fromLatin1(QUrl::toPercentEncoding(name));
    return uri;
}

bool DestinationHandOver::StartDetached(const QString& program, const QStringList& arguments,
                                        QString& error) {
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    if (process.startDetached()) return true;
    error = process.errorString();
    return false;
}
