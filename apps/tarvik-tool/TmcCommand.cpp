#include "Commands.h"
#include "gps/sources/SourceSettings.h"
#include "integrations/TmcStatus.h"
#include "integrations/tmc/CTmcReceiver.h"
#include "integrations/tmc/TmcModes.h"
#include "integrations/tmc/TmcSettings.h"
#include "integrations/tmc/TmcTimers.h"
#include "settings/CRegistryKey.h"

#include <QCoreApplication>
#include <QTimer>

namespace {

const char* const kUsage =
    "tarvik-tool tmc probe [--lib PATH] [--mode M] [--seconds S]\n"
    "Loads the TMC receiver library (PATH, default the setting TmcLibrary) as the page \"Einstellungen\n"
    "TMC\" does and runs the receiver for S seconds (default 3) in mode M (0 to 5, default the stored\n"
    "TMC_Control; not stored) on the port and speed of the settings. Prints one CSV row per event:\n"
    "  event,name,arguments,result\n"
    "'missing' rows name the functions the library lacks (exit 1, \"Could not initialize dll\");\n"
    "'call' rows the library calls made (the state queries left out), 'notification' rows the\n"
    "library's notifications, and a last 'state' row the message count and station.";

// The document's serial port from "Source"; -1 for every other source.
int documentPort() {
    CRegistryKey key;
    const int source = SourceTable::lookUp(readSetting(key, SourceSettings::kSource));
    return SourceTable::isSerialPort(source) ? source : -1;
}

} // namespace

int runTmcCommand(ToolContext& ctx, QStringList args) {
    if (args.isEmpty()) return ctx.usageError("a verb is missing", kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.takeFirst();
    if (verb != u"probe") return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
    const ToolOptions options(args, {"--lib", "--mode", "--seconds"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (!options.positional().isEmpty())
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 0, 0), kUsage);
    bool bModeOk = true, bSecondsOk = true;
    const int nMode = options.has("--mode") ? options.value("--mode").toInt(&bModeOk) : -1;
    const double dSeconds = options.value("--seconds", "3").toDouble(&bSecondsOk);
    if (!bModeOk || (options.has("--mode") && !TmcModes::isValid(nMode)))
        return ctx.usageError("--mode takes 0 to 5, not '" + options.value("--mode") + "'", kUsage);
    if (!bSecondsOk || dSeconds < 0 || dSeconds > 3600)
        return ctx.usageError("--seconds takes 0 to 3600, not '" + options.value("--seconds") + "'", kUsage);
    CRegistryKey key;
    const QString library = options.value("--lib", readSetting(key, TmcSettings::kLibrary));

    TmcStatus status;
    QtTmcTimers timers;
    CTmcReceiver::Hooks hooks;
    hooks.documentPort = documentPort;
    CTmcReceiver receiver(status, timers, hooks);
    QObject::connect(&timers, &QtTmcTimers::fired, &receiver, &CTmcReceiver::OnTimer);
    ctx.printCsvRow({"event", "name", "arguments", "result"});
    if (!receiver.LoadLibrary(library)) {
        for (const QString& name : receiver.Library().MissingSymbols())
            ctx.printCsvRow({"missing", name, "", ""});
        ctx.out.flush();
        return ctx.inputError(receiver.StatusText() + ": " + receiver.Library().LoadError());
    }
    receiver.Library().SetCallObserver([&ctx](const QString& name, const QString& arguments, int nResult) {
        ctx.printCsvRow({"call", name, arguments, QString::number(nResult)});
    });
    QObject::connect(&receiver, &CTmcReceiver::notified, &receiver, [&ctx](const QString& name) {
        ctx.printCsvRow({"notification", name, "", ""});
    });
    if (nMode >= 0) receiver.OverrideMode(nMode);
    receiver.Start();
    QTimer::singleShot(int(dSeconds * 1000), qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    receiver.Library().SetCallObserver({});
    ctx.printCsvRow({"state", receiver.StatusText(), status.strStation,
                     status.IsCountKnown() ? QString::number(status.nMessageCount) : QString()});
    return ToolContext::kOk;
}
