#include "Commands.h"
#include "GpsToolSupport.h"
#include "gps/SatelliteTable.h"
#include "gps/SkyReplay.h"

#include <QFile>

namespace {

const char* const kUsage =
    "tarvik-tool sky LOG [--at SECONDS] [--set AcceptAllTalkers=1]\n"
    "Replays the satellite sentences (GSV, GSA) of the recorded NMEA log LOG and prints the\n"
    "satellite table as the satellites page shows it, one CSV row per satellite:\n"
    "  system,prn,elevation,azimuth,snr,used (GPS, SBAS, GLONASS, Galileo, BeiDou or QZSS; the PRN\n"
    "  as the GSV sent it; degrees, empty when the GSV left them empty; dB-Hz, 0 when not tracked;\n"
    "  1 when a GSA of its system names it).\n"
    "--at stops SECONDS after the log's first time stamp ($GPGGA/$GPRMC), that second included\n"
    "(default: the whole log). --set AcceptAllTalkers=1 counts the other talkers ($GN, $GL, $GA,\n"
    "$GB, $BD, $GQ) for this run (default: the stored setting); without it only $GP sentences count.";

QString optionalNumber(int value) {
    return value < 0 ? QString() : QString::number(value);
}

} // namespace

int runSkyCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const ToolOptions options(args, {"--at", "--set"});
    if (!options.ok()) return ctx.usageError(options.error(), kUsage);
    if (options.positional().size() != 1)
        return ctx.usageError(ToolContext::argumentCountProblem(options.positional(), 1), kUsage);
    std::optional<int64_t> atSeconds;
    if (options.has("--at")) {
        bool bOk = false;
        atSeconds = options.value("--at").toLongLong(&bOk);
        if (!bOk || *atSeconds < 0)
            return ctx.usageError("--at needs whole seconds from 0 up, not '" + options.value("--at") + "'",
                                  kUsage);
    }
    QString problem;
    const auto acceptAll = acceptAllTalkers(options, problem);
    if (!acceptAll) return ctx.usageError(problem, kUsage);
    QFile file(options.positional().first());
    if (!file.open(QIODevice::ReadOnly)) return ctx.inputError("cannot read " + file.fileName());
    const QByteArray log = file.readAll();

    SatelliteTable table;
    replaySky(log, *acceptAll, atSeconds, table);
    ctx.printCsvRow({"system", "prn", "elevation", "azimuth", "snr", "used"});
    for (const SatelliteInView& satellite : table.inView())
        ctx.printCsvRow({QString::fromLatin1(gnssSystemName(satellite.m_system)),
                         QString::number(satellite.m_nPrn), optionalNumber(satellite.m_nElevation),
                         optionalNumber(satellite.m_nAzimuth), QString::number(satellite.m_nSnr),
                         satellite.m_bUsed ? "1" : "0"});
    return ToolContext::kOk;
}
