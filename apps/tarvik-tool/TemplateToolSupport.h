#pragma once

#include "ToolContext.h"
#include "integrations/NavigationTarget.h"
#include "integrations/TmcStatus.h"
#include "integrations/template/TemplateSources.h"
#include "nav/goto/GoToTarget.h"
#include "platform/DeviceClock.h"

#include <memory>
#include <optional>

// The live values that the template and page commands fill templates from: a fresh document, or
// the one a measuring replay of a log leaves at a moment of its time line; "now" is the command's
// clock (--now, or the recording's time line after --replay). --set puts single values in place.
class TemplateToolState {
public:
    static const char* const kOptionsUsage;
    static const char* const kOptionsHelp;
    static QStringList valueOptions() { return {"--replay", "--at", "--now", "--set"}; }

    TemplateToolState();
    ~TemplateToolState();

    // Builds the state from the options; an exit code (with its message printed) when they are not
    // usable, nothing when all is well.
    std::optional<int> prepare(ToolContext& ctx, const ToolOptions& options, const QString& usage);
    TemplateSources sources() const;

private:
    bool set(const QString& name, const QString& value);

    std::optional<FixedDeviceClock> m_clock;
    std::unique_ptr<class CFendixDoc> m_pDoc;
    CGoToTarget m_goTo;
    double m_dGoToLong = 0, m_dGoToLat = 0;
    QString m_strGoToName;
    NavigationTarget m_nav;
    TmcStatus m_tmc;
    int m_nBatteryPercent = kUnknownBatteryPercent;
};
