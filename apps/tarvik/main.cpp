#include "platform/DeviceRoot.h"
#include "shell/settings/CRegistryKey.h"
#include "shell/settings/DevLog.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <QWidget>

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tarvik"));
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption rootOption(QStringLiteral("root"), QStringLiteral("Device root folder."), QStringLiteral("DIR"));
    const QCommandLineOption demoOption(QStringLiteral("demo"), QStringLiteral("Start the demo drive in its own root."));
    const QCommandLineOption fullOption(QStringLiteral("fullscreen"), QStringLiteral("Fill the screen."));
    parser.addOptions({rootOption, demoOption, fullOption});
    parser.process(app);

    QString rootFolder = parser.value(rootOption);
    if (rootFolder.isEmpty() && parser.isSet(demoOption))
        rootFolder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tarvik-demo");
    const DeviceRoot root = DeviceRoot::fromEnvironment(rootFolder);
    DeviceRoot::setCurrent(root);
    root.ensureExists();
    RegistryHive::setCurrent(std::make_shared<RegistryHive>(root.registryFile()));
    DevLog("ver: %s", TARVIK_VERSION);

    QWidget window;
    window.setWindowTitle(QStringLiteral("Tarvik"));
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QLabel(QStringLiteral("Tarvik\nGeräteordner: %1\nEinstellungen: %2\\%3")
                                     .arg(root.hostFolder(), QStringLiteral("HKEY_CURRENT_USER"),
                                          QString::fromLatin1(CRegistryKey::kSettingsPath))));
    if (parser.isSet(fullOption)) window.showFullScreen();
    else window.show();
    return app.exec();
}
