#include "Commands.h"
#include "demo/DemoDrive.h"
#include "demo/DemoMaps.h"
#include "demo/DemoRoot.h"
#include "demo/DemoSpeedSounds.h"
#include "platform/DeviceClock.h"

#include <QDir>
#include <QSaveFile>

namespace {

const char* const kUsage =
    "tarvik-tool demo generate FILE [--seed N] [--start ISO8601]\n"
    "tarvik-tool demo sounds FOLDER\n"
    "tarvik-tool demo maps FOLDER\n"
    "tarvik-tool demo prepare DATA\n"
    "generate: writes the demo drive, about 20 minutes from Leutkirch to Isny with a stop and a\n"
    "  tunnel, as a track log (header line, then $GPGGA and $GPRMC each second, $GPGSA and\n"
    "  $GPGSV every 5 s). The same seed (default 1) and start (default 2025-05-17T07:14:00Z)\n"
    "  give the same bytes.\n"
    "sounds: writes the demo's speed sounds 30.wav, 50.wav, 80.wav and 100.wav into FOLDER.\n"
    "maps: draws the demo's two maps into FOLDER, each with its .kal: Leutkirch.png, a town map\n"
    "  (2.5 m a pixel, 3 points, scanned 4 degrees turned), and Allgaeu.jpg, the whole drive\n"
    "  (12 m a pixel, 4 points).\n"
    "prepare: fills the device root once from the demo data folder DATA (data/demo): its files\n"
    "  under their system paths, its settings.reg into the root's registry.";

bool writeFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

int generateCommand(ToolContext& ctx, const QStringList& args) {
    const ToolOptions options(args, {"--seed", "--start"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    DemoDriveOptions drive;
    if (options.has("--seed")) {
        bool bOk = false;
        drive.m_nSeed = options.value("--seed").toULongLong(&bOk);
        if (!bOk)
            return ctx.usageError("--seed needs a whole number, not '" + options.value("--seed") + "'",
                                  kUsage);
    }
    if (options.has("--start")) {
        const auto start = FixedDeviceClock::fromIso8601(options.value("--start"));
        if (!start)
            return ctx.usageError("--start needs an ISO 8601 time, not '" + options.value("--start") + "'",
                                  kUsage);
        drive.m_tStartUtc = start->utcNow();
    }
    const QString file = options.positional().first();
    if (!writeFile(file, generateDemoDrive(drive))) return ctx.inputError("cannot write " + file);
    return ToolContext::kOk;
}

int soundsCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1), kUsage);
    const QDir folder(args.first());
    if (!folder.mkpath(".")) return ctx.inputError("cannot create " + folder.path());
    for (const int speed : DemoSpeedSounds::speeds()) {
        const QString file = folder.filePath(QString::number(speed) + ".wav");
        if (!writeFile(file, DemoSpeedSounds::wavOf(speed))) return ctx.inputError("cannot write " + file);
    }
    return ToolContext::kOk;
}

int mapsCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1), kUsage);
    const QDir folder(args.first());
    if (!folder.mkpath(".")) return ctx.inputError("cannot create " + folder.path());
    QString failed;
    if (!writeDemoMaps(folder.path(), failed)) return ctx.inputError("cannot write " + failed);
    return ToolContext::kOk;
}

int prepareCommand(ToolContext& ctx, const QStringList& args) {
    if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1), kUsage);
    if (findDemoData({args.first()}).isEmpty())
        return ctx.inputError(args.first() + " holds no " + DemoRoot::kSettingsFile);
    if (!prepareDemoRoot(ctx.root.hostFolder(), args.first()))
        return ctx.inputError("cannot fill " + ctx.root.hostFolder() + " from " + args.first());
    return ToolContext::kOk;
}

} // namespace

int runDemoCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.isEmpty() ? QString() : args.takeFirst();
    if (verb == "generate") return generateCommand(ctx, args);
    if (verb == "sounds") return soundsCommand(ctx, args);
    if (verb == "maps") return mapsCommand(ctx, args);
    if (verb == "prepare") return prepareCommand(ctx, args);
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
