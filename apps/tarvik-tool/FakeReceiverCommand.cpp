#include "Commands.h"
#include "gps/sources/FakeReceiver.h"
#include "gps/sources/StopEvent.h"

#include <QFile>

namespace {

const char* const kUsage =
    "tarvik-tool fake-receiver LOG [--speed N] [--loop]\n"
    "Opens a pseudo-terminal, prints its device path on the first line and plays the recorded NMEA\n"
    "log LOG into it with the recorded pacing (N times faster with --speed; again and again with\n"
    "--loop), so that the serial source can run without a receiver: point a port at the path with\n"
    "'tarvik-tool reg' (value COM1Device) or use 'tarvik-tool watch --device PATH'.";

} // namespace

int runFakeReceiverCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {"--speed"}, {"--loop", "--help"});
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    bool numeric = true;
    const int speed = options.has("--speed") ? options.value("--speed").toInt(&numeric) : 1;
    if (!numeric || speed < 1)
        return ctx.usageError(
            "--speed needs a whole number of at least 1, not '" + options.value("--speed") + "'", kUsage);

    QFile file(options.positional().first());
    if (!file.open(QIODevice::ReadOnly)) return ctx.inputError("cannot read " + file.fileName());
    const QByteArray log = file.readAll();
    FakeReceiver receiver;
    if (const QString error = receiver.open(); !error.isEmpty())
        return ctx.inputError("cannot open a pseudo-terminal: " + error);
    ctx.out << receiver.devicePath() << Qt::endl;
    StopEvent never;
    QString error;
    if (!receiver.play(log, speed, options.has("--loop"), never, error))
        return ctx.inputError("cannot write to " + receiver.devicePath() + ": " + error);
    return ToolContext::kOk;
}
