#include "demo/DemoRoot.h"
#include "platform/DeviceRoot.h"
#include "shell/CFendixApp.h"
#include "settings/RegistryHive.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>
#include <cstdio>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarvik"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Tarvik, the GPS companion"));
    parser.addHelpOption();
    const QCommandLineOption rootOption(QStringLiteral("root"), QStringLiteral("Device root folder."),
                                        QStringLiteral("DIR"));
    const QCommandLineOption demoOption(QStringLiteral("demo"),
                                        QStringLiteral("Replay the demo drive in a device root of its own."));
    const QCommandLineOption fullOption(QStringLiteral("fullscreen"), QStringLiteral("Fill the screen."));
    parser.addOptions({rootOption, demoOption, fullOption});
    parser.process(app);

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
    if (!tarvik.InitInstance(parser.isSet(fullOption))) return 1;
    return app.exec();
}
