#include "Commands.h"
#include "gps/share/ReceiverShare.h"
#include "gps/share/SharedLogPlayer.h"
#include "gps/share/VantrelCommand.h"

#include <QFile>
#include <thread>

namespace {

const char* const kUsage =
    "tarvik-tool share LOG [--pty PATH] [--tcp HOST:PORT] [--rate N] [--simulate TEXT --at SECONDS]\n"
    "                      [--readers N]\n"
    "Shares the recorded NMEA log LOG the way Tarvik shares its receiver: every line goes unchanged to\n"
    "the pseudo-terminal linked at PATH and to every client of a TCP server on HOST:PORT (port 0: any\n"
    "free port). Without --pty and --tcp, the sharing settings of the device root name both. Prints\n"
    "one JSON object with the link, its device and the server's address, then plays the log: as\n"
    "recorded, N lines a second with --rate, or as fast as the readers take them with --rate 0. With\n"
    "--simulate, the splitter's in-band text TEXT (\"@Vantrel:Simulate=DDMM.MMMMM,N,DDDMM.MMMMM,E\" or\n"
    "the bare \"@Vantrel:Simulate=\") is fed at second SECONDS of the log. --readers waits up to 30 s\n"
    "for N readers before the first line. Exits at the end of the log once the readers have drained.";

constexpr int kReaderWaitMs = 30000;
constexpr int kDrainMs = 10000;

// "--name N" as a whole number of at least `least`; false with a usage problem in `problem`.
bool readCount(const ToolOptions& options, const char* name, int least, int& value, QString& problem) {
    if (!options.has(name)) return true;
    bool numeric = false;
    value = options.value(name).toInt(&numeric);
    if (numeric && value >= least) return true;
    problem = QStringLiteral("%1 needs a whole number of at least %2, not '%3'")
                  .arg(QString::fromLatin1(name))
                  .arg(least)
                  .arg(options.value(name));
    return false;
}

} // namespace

int runShareCommand(ToolContext& ctx, QStringList args) {
    const ToolOptions options(args, {"--pty", "--tcp", "--rate", "--simulate", "--at", "--readers"},
                              {"--help"});
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    SharedLogPlayer::Options play;
    int readers = 0;
    QString problem;
    if (!readCount(options, "--rate", 0, play.m_nRate, problem) ||
        !readCount(options, "--at", 0, play.m_nSimulateAt, problem) ||
        !readCount(options, "--readers", 0, readers, problem))
        return ctx.usageError(problem, kUsage);
    if (options.has("--at") && !options.has("--simulate"))
        return ctx.usageError(QStringLiteral("--at needs --simulate"), kUsage);

    bool enabled = false;
    ReceiverShare::Options share = ReceiverShare::readOptions(ctx.root, enabled);
    if (options.has("--pty") || options.has("--tcp")) {
        share.m_endpoints.m_strLinkPath = options.value("--pty");
        share.m_endpoints.m_strTcpHost.clear();
    }
    if (options.has("--tcp")) {
        const QString text = options.value("--tcp");
        const qsizetype colon = text.lastIndexOf(':');
        bool numeric = false;
        share.m_endpoints.m_strTcpHost = text.left(colon);
        share.m_endpoints.m_nTcpPort = text.mid(colon + 1).toInt(&numeric);
        if (colon <= 0 || !numeric || share.m_endpoints.m_nTcpPort < 0 ||
            share.m_endpoints.m_nTcpPort > 65535)
            return ctx.usageError("--tcp needs HOST:PORT, not '" + text + "'", kUsage);
    }
    if (options.has("--simulate")) {
        play.m_simulateText = options.value("--simulate").toLatin1();
        const VantrelCommand command = readVantrelCommand(play.m_simulateText);
        if (command.m_kind == VantrelCommand::Kind::NotForSplitter)
            return ctx.inputError("not a splitter text: " + options.value("--simulate").left(40));
        if (command.m_kind == VantrelCommand::Kind::Invalid) return ctx.inputError(command.m_strError);
    }

    QFile file(options.positional().first());
    if (!file.open(QIODevice::ReadOnly)) return ctx.inputError("cannot read " + file.fileName());
    const QByteArray log = file.readAll();
    ReceiverShare receiverShare;
    if (const QString error = receiverShare.start(share); !error.isEmpty()) return ctx.inputError(error);
    LineFanout& fanout = receiverShare.fanout();
    const QString tcp = fanout.tcpPort() > 0
                            ? share.m_endpoints.m_strTcpHost + ':' + QString::number(fanout.tcpPort())
                            : QString();
    ctx.printJson({{"pty", ToolContext::jsonString(share.m_endpoints.m_strLinkPath)},
                   {"device", ToolContext::jsonString(fanout.devicePath())},
                   {"tcp", ToolContext::jsonString(tcp)}});
    ctx.out.flush();
    const auto enoughReaders = [readers](const LineFanout::Status& status) {
        return status.m_nReaders >= readers;
    };
    if (readers > 0 && !fanout.waitForStatus(enoughReaders, kReaderWaitMs))
        return ctx.inputError(QStringLiteral("fewer than %1 readers came").arg(readers));
    SharedLogPlayer(receiverShare, play, [](int ms) {
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    }).play(log);
    fanout.waitDrained(kDrainMs);
    return ToolContext::kOk;
}
