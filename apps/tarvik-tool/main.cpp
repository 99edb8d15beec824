#include "Commands.h"
#include "settings/RegistryHive.h"

#include <QGuiApplication>
#include <memory>

namespace {

struct Noun {
    const char* name;
    const char* summary;
    int (*run)(ToolContext&, QStringList);
    // Verbs that only read settings, separated by blanks, or "*" for all: for them the settings
    // file is opened read-only, so reading never creates, repairs or changes it.
    const char* readingVerbs = "";
};

// Every capability of Tarvik that makes sense without a screen, one noun each.
const Noun kNouns[] = {
    {"reg", "read, write, list, export and import settings (registry)", runRegCommand, "get list export"},
    {"ini", "read and write text profile values", runIniCommand, "*"},
    {"nmea", "interpret NMEA sentences, build the stand-in $GPGGA", runNmeaCommand, "*"},
    {"track", "read a recorded NMEA log into track points; .tk track files, GPX tracks", runTrackCommand,
     "*"},
    {"log", "the logbook of trips: list the logs, comment a trip, export a log as KML, CSV or GPX",
     runLogCommand, "*"},
    {"sky", "the satellite table of a recorded log, as the satellites page shows it", runSkyCommand, "*"},
    {"replay", "run the GPS document over a recorded log: statistics and track log", runReplayCommand},
    {"sound", "speed-sound bands, one volume update, the default alert files", runSoundCommand},
    {"coord", "write and read coordinates in the position notations", runCoordCommand, "*"},
    {"geo", "great-circle distance, course and destination", runGeoCommand, "*"},
    {"grid", "UTM, MGRS and Falk/MarcoPolo Mercator grid conversions", runGridCommand, "*"},
    {"kal", "map calibrations: fit points, read and write .kal files, convert positions", runKalCommand,
     "fit geo2px px2geo"},
    {"map", "the map catalogue of a folder: scan it, choose the best map for a position", runMapCommand},
    {"poi", "read POI files (.ov2, .asc), find the nearest POIs, convert between formats", runPoiCommand,
     "read nearest"},
    {"wpt", "the GoTo page's waypoint file: read it, import free-form positions, convert to and from GPX",
     runWptCommand, "read gpx"},
    {"goto", "the GoTo page's texts and beep, the \"Calc Goto Pos\" dialog, the splitter simulation text",
     runGotoCommand, "*"},
    {"nav", "the navigation program: its kind, a destination handed over, a Windows program's file version",
     runNavCommand, "*"},
    {"template", "fill the variables of a page template with the GPS state, fresh or after a replay",
     runTemplateCommand, "*"},
    {"page", "a user page file: its elements as loaded, the page drawn into a PNG file", runPageCommand, "*"},
    {"demo", "generate the demo drive and its sounds, fill a demo device root", runDemoCommand},
    {"fake-receiver", "play a recorded log into a pseudo-terminal", runFakeReceiverCommand},
    {"share", "share a recorded log as Tarvik shares its receiver: pseudo-terminal and TCP server", runShareCommand},
    {"watch", "run the GPS source, print each sentence with its change code", runWatchCommand},
    {"hotkey", "resolve button presses into hotkey value names, list the assignments", runHotkeyCommand, "*"},
    {"livepos", "the live position upload: the send address, one send, a look-up, an answer line",
     runLiveposCommand, "url send get parse"},
    {"tmc", "load the TMC receiver library and run it for a while", runTmcCommand, "probe"},
};

void printHelp(QTextStream& out) {
    out << "usage: tarvik-tool [--root DIR] NOUN VERB [ARGS]\n\n"
           "The device root is DIR, else $TARVIK_ROOT, else $XDG_DATA_HOME/tarvik.\n\nNouns:\n";
    for (const Noun& noun : kNouns)
        out << "  " << QString::fromLatin1(noun.name).leftJustified(16) << noun.summary << '\n';
    out << "\n'tarvik-tool NOUN --help' tells more.\n";
}

// Drawing the demo's maps and rendering a page need fonts, which only a GUI application has: those verbs get
// one, offscreen, so that the tool still needs no display.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char* argv[]) {
    for (int i = 1; i + 1 < argc; ++i)
        if ((qstrcmp(argv[i], "demo") == 0 && qstrcmp(argv[i + 1], "maps") == 0) ||
            (qstrcmp(argv[i], "page") == 0 && qstrcmp(argv[i + 1], "render") == 0)) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
            return std::make_unique<QGuiApplication>(argc, argv);
        }
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char* argv[]) {
    const std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv);
    QStringList args = app->arguments().mid(1);
    QString rootOption;
    if (!args.isEmpty() && args.first() == QLatin1String("--root")) {
        // An empty root would silently become the default one: the user's real settings.
        if (args.size() < 2 || args.at(1).isEmpty()) {
            QTextStream(stderr) << "tarvik-tool: --root needs a folder\n";
            return ToolContext::kUsageError;
        }
        rootOption = args.at(1);
        args = args.mid(2);
    }
    const DeviceRoot root = DeviceRoot::fromEnvironment(rootOption);
    DeviceRoot::setCurrent(root);
    ToolContext ctx(root);
    if (args.isEmpty() || args.first() == QLatin1String("--help") || args.first() == QLatin1String("-h")) {
        printHelp(ctx.out);
        return args.isEmpty() ? ToolContext::kUsageError : ToolContext::kOk;
    }
    for (const Noun& noun : kNouns) {
        if (args.first() != QLatin1String(noun.name)) continue;
        if (!root.ensureExists()) return ctx.inputError("cannot create the device root " + root.hostFolder());
        const QStringList readingVerbs = QString::fromLatin1(noun.readingVerbs).split(' ');
        const bool onlyReads =
            readingVerbs.contains(QStringLiteral("*")) || readingVerbs.contains(args.value(1));
        RegistryHive::setCurrent(
            std::make_shared<RegistryHive>(root.registryFile(), onlyReads ? RegistryHive::Access::ReadOnly
                                                                          : RegistryHive::Access::ReadWrite));
        return noun.run(ctx, args.mid(1));
    }
    ctx.err << "tarvik-tool: unknown noun '" << args.first() << "'\n";
    printHelp(ctx.err);
    return ToolContext::kUsageError;
}
