#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

// Turns the presses and releases of the application buttons into value names ("Taste 2",
// "3*Taste 2", "Lang Taste 1", "Taste 1, 3"). One press window (timer 46) opens at the first press;
// presses inside it only count, a second button makes a chord at once, and a button still held when
// the window ends is a long press. Owns no timer: the caller starts one when told and reports its end.
class CHotkeyPresses {
public:
    static constexpr int kWindowMs = 500;

    struct Step {
        std::optional<QString> resolved; // a chord, performed at once
        bool bStartTimer = false;        // the first press: the window opens now
    };
    // A message for button 1..6; others are ignored.
    Step OnKey(int button, bool bUp);
    // The window ended: the value name of the pending press, nothing when none is pending.
    std::optional<QString> OnTimer();
    bool IsPending() const { return m_nPending != 0; }

private:
    QString Resolve(const QString& valueName);

    int m_nPending = 0;
    int m_nCount = 0;
    bool m_bDown = false;
};

// One message at a time in milliseconds of a monotonic clock.
struct PressEvent {
    int button = 0;
    bool bUp = false;
    int64_t ms = 0;
};

// Runs the events through the press detection with the window on the events' clock, resolving the
// last press after the last event as well. The window ends before an event at exactly its end.
// `registered` says which buttons send messages at all; the others keep their normal function.
template <typename Registered>
std::vector<QString> resolvePresses(const std::vector<PressEvent>& events, Registered registered) {
    CHotkeyPresses presses;
    std::vector<QString> names;
    std::optional<int64_t> windowEnd;
    const auto closeWindowBefore = [&](std::optional<int64_t> ms) {
        if (!windowEnd || (ms && *ms < *windowEnd)) return;
        if (std::optional<QString> name = presses.OnTimer()) names.push_back(*name);
        windowEnd.reset();
    };
    for (const PressEvent& event : events) {
        closeWindowBefore(event.ms);
        if (!registered(event.button)) continue;
        const CHotkeyPresses::Step step = presses.OnKey(event.button, event.bUp);
        if (step.resolved) {
            names.push_back(*step.resolved);
            windowEnd.reset();
        }
        if (step.bStartTimer) windowEnd = event.ms + CHotkeyPresses::kWindowMs;
    }
    closeWindowBefore(std::nullopt);
    return names;
}
