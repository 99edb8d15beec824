#include "demo/DemoRoot.h"
#include "nav/goto/Destination.h"
#include "nav/goto/GoToTarget.h"
#include "platform/DeviceRoot.h"
#include "platform/session/DestinationBus.h"
#include "platform/session/DisplayCheck.h"
#include "settings/RegistryHive.h"
#include "shell/CFendixApp.h"
#include "shell/PageTable.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>
#include <cstdio>

namespace {

void printUsage(const QList<QCommandLineOption>& options) {
    std::printf(
        "usage: tarvik [--root DIR] [--demo] [--fullscreen] [--page NAME]\n"
        "              [--goto LAT,LON[,NAME] | geo:URI]\n\n"
        "Tarvik, the GPS companion. A destination (--goto or a geo: URI) becomes the GoTo target; when\n"
        "Tarvik runs already, it is handed to the running one, and this start ends.\n\n");
    for (const QCommandLineOption& option : options) {
        QString name = QStringLiteral("--") + option.names().constLast();
        if (!option.valueName().isEmpty()) name += ' ' + option.valueName();
        std::printf("  %-16s %s\n", qPrintable(name), qPrintable(option.description()));
    }
    std::printf("\nPages for --page: %s\n", qPrintable(PageTable::pageNames().join(QStringLiteral(", "))));
}

} // namespace

int main(int argc, char* argv[]) {
    // Read before the toolkit starts: --help and --version need no display, and a missing display
    // is named instead of ending in the toolkit's abort.
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const QCommandLineOption rootOption(QStringLiteral("root"), QStringLiteral("Device root folder."),
                                        QStringLiteral("DIR"));
    const QCommandLineOption demoOption(QStringLiteral("demo"),
                                        QStringLiteral("Replay the demo drive in a device root of its own."));
    const QCommandLineOption fullOption(QStringLiteral("fullscreen"), QStringLiteral("Fill the screen."));
    const QCommandLineOption gotoOption(QStringLiteral("goto"),
                                        QStringLiteral("Set the GoTo target (degrees)."),
                                        QStringLiteral("LAT,LON[,NAME]"));
    const QCommandLineOption pageOption(QStringLiteral("page"),
                                        QStringLiteral("Start on this page instead of the last one shown."),
                                        QStringLiteral("NAME"));
    const QCommandLineOption helpOption({QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("Show this help."));
    const QCommandLineOption versionOption(QStringLiteral("version"), QStringLiteral("Show the version."));
    const QList<QCommandLineOption> options = {rootOption, demoOption, fullOption,
                                               gotoOption, pageOption, helpOption, versionOption};
    QCommandLineParser parser;
    parser.addOptions(options);
    if (!parser.parse(arguments)) {
        std::fprintf(stderr, "tarvik: %s\n", qPrintable(parser.errorText()));
        return 2;
    }
    if (parser.isSet(helpOption)) {
        printUsage(options);
        return 0;
    }
    if (parser.isSet(versionOption)) {
        std::printf("tarvik %s\n", TARVIK_VERSION);
        return 0;
    }
    std::optional<Destination> destination;
    if (parser.isSet(gotoOption)) {
        destination = ParseGotoArgument(parser.value(gotoOption));
        if (!destination) {
            std::fprintf(stderr, "tarvik: --goto needs LAT,LON[,NAME] in degrees\n");
            return 2;
        }
    }
    for (const QString& argument : parser.positionalArguments()) {
        destination = ParseGeoUri(argument);
        if (!destination) {
            std::fprintf(stderr, "tarvik: not a geo: URI with a position: %s\n", qPrintable(argument));
            return 2;
        }
    }
    if (parser.isSet(rootOption) && parser.value(rootOption).isEmpty()) {
        std::fprintf(stderr, "tarvik: --root needs a folder\n");
        return 2;
    }
    const QString startPage = parser.value(pageOption);
    if (parser.isSet(pageOption) && !PageTable::pageNames().contains(startPage)) {
        std::fprintf(stderr, "tarvik: no page named \"%s\" (tarvik --help lists them)\n",
                     qPrintable(startPage));
        return 2;
    }
    if (const QString reason = missingDisplayReason(); !reason.isEmpty()) {
        std::fprintf(stderr, "tarvik: %s\n", qPrintable(reason));
        return 1;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarvik"));
    if (destination &&
        DestinationService::SendToRunning(destination->m_dLon, destination->m_dLat, destination->m_strName))
        return 0;

    QString rootFolder = parser.value(rootOption);
    if (parser.isSet(demoOption)) {
        // The demo never touches the user's real root.
        if (rootFolder.isEmpty())
            rootFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         QStringLiteral("/tarvik-demo");
        const QString data = findDemoData({QStringLiteral(TARVIK_DEMO_DATA_DIR),
                                           QCoreApplication::applicationDirPath() + QStringLiteral("/demo")});
        if (data.isEmpty() || !prepareDemoRoot(rootFolder, data)) {
            std::fprintf(stderr, "tarvik: cannot prepare the demo in %s\n", qPrintable(rootFolder));
            return 1;
        }
    }
    const DeviceRoot root = DeviceRoot::fromEnvironment(rootFolder);
    DeviceRoot::setCurrent(root);
    if (!root.ensureExists()) {
        std::fprintf(stderr, "tarvik: cannot create the device root %s\n", qPrintable(root.hostFolder()));
        return 1;
    }
    RegistryHive::setCurrent(std::make_shared<RegistryHive>(root.registryFile()));

    CFendixApp tarvik(root);
    if (!tarvik.InitInstance(parser.isSet(fullOption), startPage)) return 1;
    CGoToTarget& target = tarvik.Target();
    DestinationService destinations(
        [&target](double lon, double lat, const QString& name) { target.SetTarget(lon, lat, name); },
        [&target] {
            double lon = 0, lat = 0;
            if (!target.GetTarget(lon, lat)) return QString();
            return QStringLiteral("%1,%2,%3")
                .arg(QString::number(lon, 'g', QLocale::FloatingPointShortest),
                     QString::number(lat, 'g', QLocale::FloatingPointShortest))
                .arg(target.Name());
        });
    destinations.Register(); // without a session bus a second start simply runs on its own
    if (destination) target.SetTarget(destination->m_dLon, destination->m_dLat, destination->m_strName);
    return app.exec();
}
