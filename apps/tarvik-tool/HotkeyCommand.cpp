#include "Commands.h"
#include "integrations/hotkeys/CHotkeyPresses.h"
#include "integrations/hotkeys/HotkeyAssignments.h"
#include "settings/CRegistryKey.h"

#include <QRegularExpression>

namespace {

const char* const kUsage =
    "tarvik-tool hotkey resolve EVENT...\n"
    "       tarvik-tool hotkey list\n"
    "resolve runs the button events through the press detection (the 500 ms window on the events' own\n"
    "clock) and prints CSV \"value_name,action\", one row per resolved press, with the actions of the\n"
    "settings; EVENT is down:N@MS or up:N@MS (button N, MS milliseconds from the first event, not\n"
    "decreasing). Buttons whose short press has no action send no events.\n"
    "list prints CSV \"value_name,action\": every assignment that holds an action.";

std::optional<PressEvent> parseEvent(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^(down|up):([0-9]+)@([0-9]{1,12})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) return std::nullopt;
    bool ok = false;
    const int button = match.captured(2).toInt(&ok);
    if (!ok) return std::nullopt;
    return PressEvent{button, match.captured(1) == QLatin1String("up"), match.captured(3).toLongLong()};
}

int resolve(ToolContext& ctx, const QStringList& texts) {
    std::vector<PressEvent> events;
    for (const QString& text : texts) {
        const std::optional<PressEvent> event = parseEvent(text);
        if (!event) return ctx.inputError("not an event (down:N@MS or up:N@MS): " + text);
        if (!events.empty() && event->ms < events.back().ms)
            return ctx.inputError("time goes back at " + text);
        events.push_back(*event);
    }
    CRegistryKey key;
    const std::vector<QString> names =
        resolvePresses(events, [&key](int button) { return HotkeyAssignments::isRegistered(key, button); });
    ctx.printCsvRow({"value_name", "action"});
    for (const QString& name : names)
        ctx.printCsvRow({name, HotkeyAssignments::action(key, name)});
    return ToolContext::kOk;
}

int list(ToolContext& ctx) {
    CRegistryKey key;
    ctx.printCsvRow({"value_name", "action"});
    for (const auto& [name, action] : HotkeyAssignments::list(key))
        ctx.printCsvRow({name, action});
    return ToolContext::kOk;
}

} // namespace

int runHotkeyCommand(ToolContext& ctx, QStringList args) {
    if (ToolContext::helpRequested(args)) return ctx.printUsage(kUsage);
    const QString verb = args.value(0);
    if (verb == QLatin1String("resolve")) {
        if (args.size() < 2) return ctx.usageError(ToolContext::argumentCountProblem(args, 2), kUsage);
        return resolve(ctx, args.mid(1));
    }
    if (verb == QLatin1String("list")) {
        if (args.size() != 1) return ctx.usageError(ToolContext::argumentCountProblem(args, 1, 1), kUsage);
        return list(ctx);
    }
    return ctx.usageError(ToolContext::unknownVerbProblem(verb), kUsage);
}
