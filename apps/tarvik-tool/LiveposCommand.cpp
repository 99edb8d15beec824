#include "Commands.h"
#include "GpsToolSupport.h"
#include "gps/CFendixDoc.h"
#include "gps/FixReplay.h"
#include "gps/GpsFix.h"
#include "integrations/livepos/CLiveposLookup.h"
#include "integrations/livepos/CLiveposSender.h"
#include "integrations/livepos/LiveposQueue.h"
#include "integrations/template/ExpandTemplate.h"

#include <QFile>

namespace {

const char* const kUsage =
    "tarvik-tool livepos url [--set NAME=VALUE ...] [--replay LOG [--at SECONDS]]\n"
    "tarvik-tool livepos send [--replay LOG [--at SECONDS]]\n"
    "tarvik-tool livepos get NICK PASSWORD\n"
    "tarvik-tool livepos parse LINE\n"
    "url prints the send address built from the settings (LiveposNickName, LiveposPassword,\n"
    "LiveposComment, LiveposUrlSendPos; --set changes one for this run only). The position is that of\n"
    "the recorded NMEA log LOG, SECONDS after its first time stamp (default: its end).\n"
    "send makes one send as the page's send thread does and prints the status line (\"Last Log: hh:mm\"\n"
    "or \"Fault # 1\"); a failed send exits 1 and is queued when LiveposQueue is on; a success sends the\n"
    "queue, newest first.\n"
    "get looks up another user's last position; parse reads a given answer line. Both print\n"
    "{\"line\", \"lon\", \"lat\", \"text\", \"ok\"}: ok is true when longitude, latitude and text were "
    "found.";

// The template language over a document that holds the replayed fix.
struct ReplayedDocument {
    SystemDeviceClock clock;
    CFendixDoc doc;

    ReplayedDocument(const DeviceRoot& root, const GpsFix& fix) : doc(root, clock) { doc.Fix() = fix; }
    TemplateExpander Expander() {
        return [this](const QString& text) {
            TemplateSources sources;
            sources.pDoc = &doc;
            sources.tLocalNow = clock.localNow();
            return ExpandTemplate(text, sources);
        };
    }
};

struct Position {
    GpsFix fix;
    LiveposFix fields;
};

// The position of --replay/--at, or the start values without --replay; nothing after a problem.
std::optional<Position> replayedPosition(ToolContext& ctx, const ToolOptions& options, int& exitCode) {
    Position position;
    if (options.has("--at") && !options.has("--replay")) {
        exitCode = ctx.usageError("--at needs --replay", kUsage);
        return std::nullopt;
    }
    if (!options.has("--replay")) return position;
    std::optional<int64_t> atSeconds;
    if (options.has("--at")) {
        bool bOk = false;
        atSeconds = options.value("--at").toLongLong(&bOk);
        if (!bOk || *atSeconds < 0) {
            exitCode = ctx.usageError(
                "--at needs whole seconds from 0 up, not '" + options.value("--at") + "'", kUsage);
            return std::nullopt;
        }
    }
    QFile file(options.value("--replay"));
    if (!file.open(QIODevice::ReadOnly)) {
        exitCode = ctx.inputError("cannot read " + file.fileName());
        return std::nullopt;
    }
    replayFix(file.readAll(), false, atSeconds, position.fix);
    // The fix time is local; the clock of a replay runs on UTC, so the two are the same here.
    position.fields = {position.fix.m_tFixTime, position.fix.m_fSpeed, position.fix.m_fCourse};
    return position;
}

int printAnswer(ToolContext& ctx, const QString& shown, const LiveposAnswer& answer) {
    ctx.printJson({{"line", ToolContext::jsonString(shown)},
                   {"lon", ToolContext::number(answer.dLong)},
                   {"lat", ToolContext::number(answer.dLat)},
                   {"text", ToolContext::jsonString(answer.strText)},
                   {"ok", answer.bComplete ? "true" : "false"}});
    return ToolContext::kOk;
}

int runUrlOrSend(ToolContext& ctx, const QString& verb, const QStringList& args) {
    const ToolOptions options(args, verb == u"url" ? QStringList{"--set", "--replay", "--at"}
                                                   : QStringList{"--replay", "--at"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (!options.positional().isEmpty())
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 0, 0), kUsage);
    LiveposAccount account = LiveposAccount::FromSettings();
    for (const QString& assignment : options.values("--set")) {
        const qsizetype nEquals = assignment.indexOf(u'=');
        if (nEquals <= 0 || !account.Set(assignment.left(nEquals), assignment.mid(nEquals + 1)))
            return ctx.usageError("--set takes LiveposNickName, LiveposPassword, LiveposComment or "
                                  "LiveposUrlSendPos=VALUE, not '" +
                                      assignment + "'",
                                  kUsage);
    }
    int exitCode = ToolContext::kOk;
    const std::optional<Position> position = replayedPosition(ctx, options, exitCode);
    if (!position) return exitCode;
    QString url, error;
    ReplayedDocument replayed(ctx.root, position->fix);
    if (!LiveposUrl::BuildSendUrl(account, position->fields, replayed.Expander(), url, error))
        return ctx.inputError(error);
    if (verb == u"url") {
        ctx.out << url << '\n';
        return ToolContext::kOk;
    }
    const SystemDeviceClock clock;
    CLiveposSender::Hooks hooks;
    hooks.localNow = [&clock] { return clock.localNow(); };
    CLiveposSender sender(ctx.root.cacheFolder(), LiveposQueue::DefaultPath(ctx.root), hooks);
    sender.LoadSettings();
    const CLiveposSender::Outcome outcome = sender.SendNow(url);
    ctx.out << sender.StatusText() << '\n';
    if (outcome.bOk) return ToolContext::kOk;
    return ctx.inputError(outcome.strError);
}

} // namespace

int runLiveposCommand(ToolContext& ctx, QStringList args) {
    if (args.isEmpty()) return ctx.usageError("a verb is missing", kUsage);
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.takeFirst();
    if (verb == u"url" || verb == u"send") return runUrlOrSend(ctx, verb, args);
    if (verb == u"parse") {
        if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1, 1), kUsage);
        const LiveposAnswer answer = LiveposAnswers::ParseLine(args.first().toLatin1());
        return printAnswer(ctx, answer.strLine, answer);
    }
    if (verb == u"get") {
        if (args.size() != 2) return ctx.usageError(ToolContext::argumentCountProblem(args, 2, 2), kUsage);
        ReplayedDocument noPosition(ctx.root, GpsFix{});
        const QString url = LiveposUrl::BuildGetUrl(args.at(0), args.at(1), noPosition.Expander());
        const CLiveposLookup::Result result = CLiveposLookup::Fetch(url, ctx.root.cacheFolder(), {});
        printAnswer(ctx, result.strShown, result.answer);
        return result.bFetched ? ToolContext::kOk : ctx.inputError(result.strError);
    }
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
