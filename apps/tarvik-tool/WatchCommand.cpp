#include "Commands.h"
#include "gps/CFendixDoc.h"
#include "gps/sources/DocumentSource.h"
#include "gps/sources/SourceTable.h"
#include "platform/DeviceClock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace {

const char* const kUsage =
    "tarvik-tool watch [--source NAME] [--device PATH] [--seconds N]\n"
    "Runs the GPS document headless on the configured source (or on NAME: COM0..COM9, Simulate,\n"
    "MobileNavigator, gpsd, tcp; --device PATH stands in for the COM port's device) for N seconds\n"
    "(default: until interrupted) and prints every sentence handed over, as CSV: ms (since the\n"
    "start), code (the interpreter's change code), sentence. Failures of the source go to stderr;\n"
    "the exit code is 1 when the source failed and delivered nothing.";

} // namespace

int runWatchCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {"--source", "--device", "--seconds"}, {"--help"});
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (!options.positional().isEmpty())
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 0), kUsage);
    bool numeric = true;
    const int seconds = options.has("--seconds") ? options.value("--seconds").toInt(&numeric) : 0;
    const QString source = options.value("--source");
    if (!numeric || seconds < 0)
        return ctx.usageError(
            "--seconds needs a whole number of at least 0, not '" + options.value("--seconds") + "'", kUsage);
    if (!source.isEmpty() && SourceTable::name(SourceTable::lookUp(source)) != source)
        return ctx.usageError("unknown source '" + source + "'", kUsage);

    // A diagnosis must not move the machine's clock to a receiver's (or a recording's) time.
    SystemDeviceClock clock(SystemDeviceClock::SetTime::Never);
    CFendixDoc doc(ctx.root, clock);
    doc.LoadSettings();
    DocumentSource documentSource(doc, ctx.root, clock);
    documentSource.controller().setSourceOverride(source);
    documentSource.controller().setDeviceOverride(options.value("--device"));
    QElapsedTimer elapsed;
    int sentences = 0;
    int failures = 0;
    documentSource.setMessageHandler([&](const QString& text) {
        ++failures;
        ctx.err << "tarvik-tool: " << text << Qt::endl;
    });
    ctx.printCsvRow({"ms", "code", "sentence"});
    ctx.out.flush();
    documentSource.setSentenceObserver([&](const char* line, int length, uint16_t code) {
        ++sentences;
        const QString text = QString::fromLatin1(line, length).trimmed();
        ctx.printCsvRow({QString::number(elapsed.elapsed()), QString::number(code), text});
        ctx.out.flush();
    });
    elapsed.start();
    documentSource.start();
    if (seconds > 0)
        QTimer::singleShot(seconds * 1000, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec();
    documentSource.controller().stopSource();
    doc.Log().close();
    if (sentences > 0) return ToolContext::kOk;
    // The failure itself was printed as it happened; a silent source is named here.
    if (failures == 0)
        ctx.err << "tarvik-tool: nothing received from source "
                << SourceTable::name(documentSource.controller().sourceIndex()) << " in " << seconds << " s"
                << Qt::endl;
    return ToolContext::kInputError;
}
