#include "TemplateToolSupport.h"

#include "GpsToolSupport.h"
#include "gps/CFendixDoc.h"
#include "gps/HeadlessReplay.h"

#include <QLocale>

const char* const TemplateToolState::kOptionsUsage =
    "[--replay LOG [--at SECONDS]] [--now ISO8601] [--set NAME=VALUE ...]";
const char* const TemplateToolState::kOptionsHelp =
    "The values come from a fresh GPS document, or with --replay from the document as a measuring\n"
    "replay of LOG leaves it (nothing is written), stopped --at SECONDS into the recording; \"now\" is\n"
    "--now (default: the machine's time), after --replay the recording's time line. --set puts one\n"
    "value in place (numbers with a decimal point): Speed (km/h), Altitude (m), Direction (degrees),\n"
    "Long, Lat (degrees), Sats, HDOP, GPSQuality, BatPerc (percent), GoToLong, GoToLat, GoToName (the\n"
    "GoTo target), TargetLong, TargetLat, Target, TargetStreet, TargetTown (the navigation program's\n"
    "destination), TmcCnt, TmcStation. Without them the GoTo, navigation, TMC and battery values are\n"
    "unknown and stay empty.";

TemplateToolState::TemplateToolState() = default;
TemplateToolState::~TemplateToolState() = default;

std::optional<int> TemplateToolState::prepare(ToolContext& ctx, const ToolOptions& options,
                                              const QString& usage) {
    m_clock = commandClock(options.value("--now"));
    if (!m_clock) return ctx.usageError(nowProblem(options), usage);
    int64_t nAt = -1;
    if (options.has("--at")) {
        bool bOk = false;
        nAt = options.value("--at").toLongLong(&bOk);
        if (!options.has("--replay")) return ctx.usageError("--at needs --replay", usage);
        if (!bOk || nAt < 0)
            return ctx.usageError("--at needs whole seconds, not '" + options.value("--at") + "'", usage);
    }
    m_pDoc = std::make_unique<CFendixDoc>(ctx.root, *m_clock);
    if (options.has("--replay")) {
        RecordedLog log(options.value("--replay"));
        if (!log.ok()) return ctx.inputError("cannot read " + options.value("--replay"));
        const int64_t tStart = m_clock->utcNow();
        measureLogUntil(*m_pDoc, *m_clock, log.bytes(), nAt);
        if (nAt >= 0) m_clock->setUtcNow(tStart + nAt);
    } else {
        m_pDoc->KeepSettingsUnchanged();
        m_pDoc->LoadSettings();
    }
    for (const QString& assignment : options.values("--set")) {
        const qsizetype nEquals = assignment.indexOf('=');
        if (nEquals < 1) return ctx.usageError("--set needs NAME=VALUE, not '" + assignment + "'", usage);
        if (!set(assignment.left(nEquals), assignment.mid(nEquals + 1)))
            return ctx.usageError("cannot set '" + assignment + "'", usage);
    }
    if (m_dGoToLong != 0 || m_dGoToLat != 0 || !m_strGoToName.isEmpty())
        m_goTo.SetTarget(m_dGoToLong, m_dGoToLat, m_strGoToName);
    return std::nullopt;
}

bool TemplateToolState::set(const QString& name, const QString& value) {
    bool bOk = false;
    const double dValue = QLocale::c().toDouble(value, &bOk);
    GpsFix& fix = m_pDoc->Fix();
    const auto number = [&](auto& field) {
        if (bOk) field = static_cast<std::remove_reference_t<decltype(field)>>(dValue);
        return bOk;
    };
    const auto text = [&](QString& field) {
        field = value;
        return true;
    };
    // Any value of the destination makes it known.
    if (name.startsWith(QLatin1String("Target"))) m_nav.bKnown = true;
    if (name == "Speed") return number(fix.m_fSpeed);
    if (name == "Altitude") return number(fix.m_fAltitude);
    if (name == "Direction") return number(fix.m_fCourse);
    if (name == "Long") return number(fix.m_dPosLong);
    if (name == "Lat") return number(fix.m_dPosLat);
    if (name == "Sats") return number(fix.m_nSatellites);
    if (name == "HDOP") return number(fix.m_fHdop);
    if (name == "GPSQuality") return number(fix.m_nValid);
    if (name == "BatPerc") return number(m_nBatteryPercent);
    if (name == "GoToLong") return number(m_dGoToLong);
    if (name == "GoToLat") return number(m_dGoToLat);
    if (name == "GoToName") return text(m_strGoToName);
    if (name == "TargetLong") return number(m_nav.dLong);
    if (name == "TargetLat") return number(m_nav.dLat);
    if (name == "Target") return text(m_nav.strName);
    if (name == "TargetStreet") return text(m_nav.strStreet);
    if (name == "TargetTown") return text(m_nav.strTown);
    if (name == "TmcCnt") return number(m_tmc.nMessageCount);
    if (name == "TmcStation") return text(m_tmc.strStation);
    return false;
}

TemplateSources TemplateToolState::sources() const {
    return {m_pDoc.get(), &m_goTo, &m_nav, &m_tmc, m_nBatteryPercent, m_clock->localNow()};
}
