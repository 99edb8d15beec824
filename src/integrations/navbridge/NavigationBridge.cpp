#include "integrations/navbridge/NavigationBridge.h"

#include "integrations/NavigationTarget.h"
#include "integrations/navbridge/NavMapPositions.h"
#include "integrations/navbridge/NavProgramKind.h"
#include "integrations/navbridge/NavProgramLocation.h"
#include "integrations/navbridge/PeFileVersion.h"
#include "integrations/navbridge/X11Windows.h"
#include "settings/DevLog.h"

#include <QFile>
#include <QFileInfo>

namespace {
// Window commands of the handheld's programs: zoom in and out for the older kinds, and for
// MobileNavigator 5 and later; the POI warner's start command and its parameter.
constexpr uint32_t kZoomInOld = 898, kZoomOutOld = 902, kZoomInMN = 1076, kZoomOutMN = 1077;
constexpr uint32_t kPoiWarnerCommand = 1007, kPoiWarnerParameter = 3144800;
constexpr int kNavitZoomIn = 2, kNavitZoomOut = -2;
// Asked while a menu opens: a Navit that does not answer at once is not waited for.
constexpr int kNavitQueryTimeoutMs = 300;

MNPosition positionFile(const DeviceRoot& root) {
    MNPosition position;
    MNPositionFile::read(root, position);
    return position;
}

// The executable of a process: under Wine the .exe named on its command line, else the process's
// own program.
int majorVersionOfProcess(const DeviceRoot& root, uint32_t pid) {
    QFile cmdline(QStringLiteral("/proc/%1/cmdline").arg(pid));
    QString executable = QFileInfo(QStringLiteral("/proc/%1/exe").arg(pid)).symLinkTarget();
    if (cmdline.open(QIODevice::ReadOnly))
        for (const QByteArray& argument : cmdline.readAll().split('\0'))
            if (argument.toLower().endsWith(".exe")) {
                QString path = QString::fromLocal8Bit(argument);
                if (path.startsWith(QLatin1String("Z:"), Qt::CaseInsensitive))
                    path = path.mid(2); // Wine's "/" drive
                executable = root.hostPath(path.replace(QLatin1Char('\\'), QLatin1Char('/')));
                break;
            }
    const auto version = readPeFileVersionOfFile(executable);
    return version ? version->major : 0;
}
} // namespace

NavigationBridge::NavigationBridge(const DeviceRoot& root, NavigationTarget& target, QString display)
    : m_root(root), m_target(target), m_strDisplay(std::move(display)), m_cleanup(m_root) {}

QString NavigationBridge::ProgramPath(bool bFolderOnly) {
    if (!m_bPathKnown) {
        m_strPath = navProgramPath();
        m_bPathKnown = true;
    }
    if (m_nKind == NavProgramKind::kUnknown)
        m_nKind = NavProgramKind::fromPath(m_strPath, [this] { return MajorVersionOfProgram(); });
    return bFolderOnly ? navProgramFolder(m_strPath) : m_strPath;
}

int NavigationBridge::MajorVersionOfProgram() {
    const auto version = readPeFileVersionOfFile(m_root.hostPath(m_strPath));
    return version ? version->major : 0;
}

int NavigationBridge::MajorVersionOfProcess(uint32_t pid) {
    if (pid == 0) return 0;
    // Asked on every window search, twice a second for the overlay; a process keeps its program.
    if (pid != m_nVersionPid) {
        m_nVersionMajor = majorVersionOfProcess(m_root, pid);
        m_nVersionPid = pid;
    }
    return m_nVersionMajor;
}

std::optional<uint32_t> NavigationBridge::FindNavigationWindow() {
    const X11Windows windows(m_strDisplay);
    for (const X11Window& window : windows.topLevelWindows()) {
        const auto kind = NavProgramKind::fromWindow(window.title, window.className,
                                                     [&] { return MajorVersionOfProcess(window.pid); });
        if (kind) {
            m_nKind = *kind;
            m_window = window.id;
            return m_window;
        }
    }
    m_window.reset();
    return std::nullopt;
}

std::optional<QRect> NavigationBridge::WindowFrame() {
    if (!m_window) return std::nullopt;
    return X11Windows(m_strDisplay).frame(*m_window);
}

bool NavigationBridge::BringToFront(QString& error) {
    if (const auto window = FindNavigationWindow()) return X11Windows(m_strDisplay).activate(*window);
    const QString path = ProgramPath(false);
    if (m_nKind == NavProgramKind::kSystemDefault) return true; // nothing of ours to start
    const QStringList line = DestinationHandOver::ProgramLine(m_root.hostPath(path), {});
    return DestinationHandOver::StartDetached(line.first(), line.mid(1), error);
}

HandOverResult NavigationBridge::NavigateTo(double lon, double lat, const QString& name) {
    const QString path = ProgramPath(false);
    DestinationHandOver::Services services{&DestinationHandOver::StartDetached, [this] { m_cleanup.start(); },
                                           NavitClient()};
    HandOverResult result = DestinationHandOver(m_root, services).Navigate(m_nKind, path, lon, lat, name);
    if (!result.bOk) {
        devLog("!!!! Navigate: %s", qUtf8Printable(result.error));
        return result;
    }
    m_target.bKnown = true;
    m_target.dLong = lon;
    m_target.dLat = lat;
    m_target.strName = name;
    m_target.strStreet.clear();
    m_target.strTown.clear();
    if (NavProgramKind::isMobileNavigator(m_nKind)) {
        QString ignored; // the files are written; a program that does not come up reads them at its start
        BringToFront(ignored);
    }
    return result;
}

std::optional<GeoPosition> NavigationBridge::MapCentre() {
    ProgramPath(false); // the kind, when no window told it yet
    if (m_nKind == NavProgramKind::kNavit)
        if (const auto centre = NavitClient(kNavitQueryTimeoutMs).MapCentre()) return centre;
    return NavMapPositions::mapCentre(positionFile(m_root));
}

std::optional<GeoPosition> NavigationBridge::LastClick() const {
    return NavMapPositions::lastClick(positionFile(m_root));
}

bool NavigationBridge::Zoom(bool bIn) {
    if (m_nKind == NavProgramKind::kNavit) return NavitClient().Zoom(bIn ? kNavitZoomIn : kNavitZoomOut);
    const auto window = FindNavigationWindow();
    if (!window) return false;
    const bool newer = m_nKind == NavProgramKind::kMNBefore5 || m_nKind == NavProgramKind::kMN5;
    const uint32_t command = newer ? (bIn ? kZoomInMN : kZoomOutMN) : (bIn ? kZoomInOld : kZoomOutOld);
    return X11Windows(m_strDisplay).postCommand(*window, command, 0);
}

bool NavigationBridge::PerformAction(const QString& action) {
    if (action == QLatin1String("<MN Zoom in>")) return Zoom(true);
    if (action == QLatin1String("<MN Zoom out>")) return Zoom(false);
    if (action == QLatin1String("<MN in Vordergrund>")) {
        QString error;
        return BringToFront(error);
    }
    devLog("!!!! %s: no navigation program here takes it", qUtf8Printable(action));
    return false;
}

bool NavigationBridge::SendPoiWarnerStart(const QString& display) {
    const X11Windows windows(display);
    const auto warner = windows.findByTitle(QStringLiteral("POI-Warner"));
    return warner && windows.postCommand(warner->id, kPoiWarnerCommand, kPoiWarnerParameter);
}
